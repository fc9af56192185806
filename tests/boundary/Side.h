#ifndef Side_H
#define Side_H

class Maker;

/// What one module offers to another, which is built from the same sources and has its own copies of all that is
/// inline. Whoever only introduces sides to each other needs to link nothing. What a check returns tells what did not
/// hold; it is empty when all did, and valid until the next call.
class Side {
public:
    virtual Maker& Own() = 0;

    /// Uses what both makers make at random, and compares it with the model.
    /// \param iFails whether what is called back throws, past the library
    virtual const char* UseAtRandom(Maker& ioOther, int iSeed, bool iFails) = 0;

    /// Sets and deletes here what the other maker has made and duplicated, of each type.
    virtual const char* PassValues(Maker& ioOther) = 0;

protected:
    ~Side() = default;
};

/// The side of a module; found by its plain name in the loaded module.
extern "C" Side* BoundarySide();

#endif
