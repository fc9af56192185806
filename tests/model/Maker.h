#ifndef Maker_H
#define Maker_H

#include "ValueModel.h"

#include <functional>

/// What objects of the host's own classes do when the library calls them. Each module has one of its own.
struct Host {
    /// \param iHasHappened whether the running operation has made its change
    static void IsCalled(bool iHasHappened = false) { s_does ? s_does(iHasHappened) : void(); }
    static inline std::function<void(bool iHasHappened)> s_does;
};

/// Makes what a random use is to use and delete. Each module has a maker of its own, with copies of its own of all that
/// is inline in what it makes.
/// \param iIsHosts of a class of the host's, for which the library has no short cuts
class Maker {
public:
    virtual ZrvPropertyValueBase* MakeValue(const ValueModel& iValue, bool iIsHosts) = 0;
    virtual ZrvProperties* MakeSet(ZrvConstPropertiesPrototype* iPrototype, bool iIsHosts) = 0;
    virtual ZrvPrototypeImpl* MakePrototype(bool iIsHosts) = 0;

protected:
    ~Maker() = default;
};

class OwnMaker final : public Maker {
    template <class T>
    struct Value : ZrvPropertyValue<T> {
        using Base = ZrvPropertyValue<T>;
        using Base::Base;
        KELUnicodeString GetType() const override { return Host::IsCalled(), Base::GetType(); }
        T GetValue() const override { return Host::IsCalled(), Base::GetValue(); }
    };

    struct Set : ZrvProperties {
        using ZrvProperties::ZrvProperties;
    };

    struct Prototype : ZrvPrototypeImpl {
        using Base = ZrvPrototypeImpl;
        using Name = const KELUnicodeString;
        using Base::GetPropertyPrototype;
        ~Prototype() override { Host::IsCalled(true); }
        ZrvRC HasProperty(Name& iName) const override { return Host::IsCalled(), Base::HasProperty(iName); }
        Name GetPropertyType(Name& iName) const override { return Host::IsCalled(), Base::GetPropertyType(iName); }
        ZrvConstPropertiesPrototype* GetPropertyPrototype(Name& iName) const override
        {
            return Host::IsCalled(), Base::GetPropertyPrototype(iName);
        }
    };

public:
    ZrvPropertyValueBase* MakeValue(const ValueModel& iValue, bool iIsHosts) override
    {
        const auto make = [iIsHosts](const auto& iContents) -> ZrvPropertyValueBase* {
            using T = std::decay_t<decltype(iContents)>;
            if constexpr (std::is_same_v<T, std::monostate>) {
                return new ZrvPropertyValueBase;
            } else {
                return iIsHosts ? new Value<T>(iContents) : new ZrvPropertyValue<T>(iContents);
            }
        };
        return std::visit(make, iValue);
    }
    ZrvProperties* MakeSet(ZrvConstPropertiesPrototype* iPrototype, bool iIsHosts) override
    {
        return iIsHosts ? new Set(iPrototype) : new ZrvProperties(iPrototype);
    }
    ZrvPrototypeImpl* MakePrototype(bool iIsHosts) override { return iIsHosts ? new Prototype : new ZrvPrototypeImpl; }
};

#endif
