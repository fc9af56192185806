#ifndef Contestants_H
#define Contestants_H

/// \file
/// Each adds the workloads of one contestant to the run.

void AddLibrary();
void AddBaseline();

#endif
