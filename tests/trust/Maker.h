#ifndef Maker_H
#define Maker_H

#include "ValueModel.h"
#include "ZrvProperties.h"
#include "ZrvPrototypeImpl.h"

#include <memory>

/// Makes what a random use is to use and delete. Each module has a maker of its own, with copies of its own of all that
/// is inline in what it makes.
class Maker {
public:
    /// \param iIsDerived of a class for which the library has no short cuts
    /// @{
    virtual ZrvPropertyValueBase* MakeValue(const ValueModel& iValue, bool iIsDerived) = 0;
    virtual ZrvProperties* MakeSet(ZrvConstPropertiesPrototype* iPrototype, bool iIsDerived) = 0;
    /// @}

    /// \param ioAlive counts the prototype while it lives; it then is of a derived class, too
    virtual ZrvPrototypeImpl* MakePrototype(int* ioAlive) = 0;

protected:
    ~Maker() = default;
};

class OwnMaker final : public Maker {
    template <class T>
    struct Derived : T {
        using T::T;
    };

    struct WatchedPrototype : ZrvPrototypeImpl {
        explicit WatchedPrototype(int& ioAlive) : m_alive(ioAlive) { ++m_alive; }
        ~WatchedPrototype() override { --m_alive; }
        int& m_alive;
    };

    template <class T, class Argument>
    static T* New(bool iIsDerived, const Argument& iArgument)
    {
        return iIsDerived ? new Derived<T>(iArgument) : new T(iArgument);
    }

public:
    ZrvPropertyValueBase* MakeValue(const ValueModel& iValue, bool iIsDerived) override
    {
        return std::visit(
            [iIsDerived](const auto& iContents) -> ZrvPropertyValueBase* {
                if constexpr (std::is_same_v<std::decay_t<decltype(iContents)>, std::monostate>) {
                    return new ZrvPropertyValueBase;
                } else {
                    using Value = ZrvPropertyValue<decltype(ToReal(iContents))>;
                    return New<Value>(iIsDerived, ToReal(iContents));
                }
            },
            iValue);
    }
    ZrvProperties* MakeSet(ZrvConstPropertiesPrototype* iPrototype, bool iIsDerived) override
    {
        return New<ZrvProperties>(iIsDerived, iPrototype);
    }
    ZrvPrototypeImpl* MakePrototype(int* ioAlive) override
    {
        return ioAlive ? new WatchedPrototype(*ioAlive) : new ZrvPrototypeImpl;
    }
};

#endif
