#ifndef Contestants_H
#define Contestants_H

/// \file
/// Each adds the workloads of one contestant to the run. Which of the optional ones are there depends on what was found
/// when the program was built.

void AddFloor();
void AddLibrary();
void AddBaseline();
void AddAbsl();
void AddGLib();
void AddGStreamer();
void AddOpenExr();
void AddQt();

#endif
