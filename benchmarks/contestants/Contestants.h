#ifndef Contestants_H
#define Contestants_H

/// \file
/// Each adds the workloads of one contestant to the run. Which of the rivals are there depends on what was found when
/// the program was built.

void AddLibrary();
void AddCodes(); ///< The library's return code and its count of frames.
void AddBaseline();
void AddAbsl();
void AddQt();

#endif
