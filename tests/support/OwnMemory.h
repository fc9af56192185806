#ifndef OwnMemory_H
#define OwnMemory_H

/// The memory of a program that has this source's operator new for its own. Allocations may be made to fail by a test
/// that runs on one thread.
class OwnMemory {
public:
    /// Lets the iAllocation-th allocation from now on fail, and every later one too if wanted.
    static void FailAt(long iAllocation, bool iAndEveryLaterOne);

    /// Ends that; returns how many allocations have failed since.
    static long Behave();

    /// Allocations so far, and blocks that are in use.
    /// @{
    static long Allocations();
    static long Live();
    /// @}
};

#endif
