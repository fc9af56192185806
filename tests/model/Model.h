#ifndef Model_H
#define Model_H

#include "ValueModel.h"

#include <map>
#include <string>

/// \file
/// Prototypes and sets as plain maps. An operation answers in words what the real one is to answer, with the failed
/// checks that it is to report.

inline std::string Report(const std::string& iWhat, const char* iFile = "ZrvProperties_data")
{
    return " [" + iWhat + " in " + iFile + "]";
}

/// What is reported of a name, a type name or a value's type without characters.
inline std::string Nothing(const std::string& iWhat, const char* iFile = "ZrvProperties")
{
    return Report("condition " + iWhat + ".GetLengthInChar()>0", iFile);
}

using Name = KELUnicodeString;
struct SortsFirst {
    bool operator()(const Name& iLeft, const Name& iRight) const { return iLeft.Compare(iRight) == 0; }
};

struct PrototypeModel {
    struct Declaration {
        Name type;
        PrototypeModel* nested;
    };

    std::string Declare(const Name& iName, const Name& iType, PrototypeModel* iNested)
    {
        const Declaration old = declared.count(iName) != 0 ? declared[iName] : Declaration{iType, nullptr};
        if (iName == "" || iType == "" || old.type != iType || (iNested && old.nested)) {
            return "error";
        }
        declared[iName] = {iType, iNested ? iNested : old.nested};
        return "ok";
    }

    ZrvPrototypeImpl* real; // lives as long as it has holders
    int age;
    std::map<Name, Declaration, SortsFirst> declared;
};

struct SetModel {
    bool Has(const Name& iName) const { return held.count(iName) != 0; }
    /// A value without a type for a name that is not held.
    ValueModel Held(const Name& iName) const { return Has(iName) ? held.at(iName) : std::monostate(); }

    int Availability(const Name& iName) const
    {
        const bool isAllowed = iName != "" && (!prototype || prototype->declared.count(iName) != 0);
        return Has(iName) ? 2 : isAllowed ? 1 : 0;
    }

    std::string AddTyped(const Name& iName, const Name& iType)
    {
        return iName == ""   ? "error" + Nothing("iPropertyName")
               : iType == "" ? "error" + Nothing("iPropertyType")
               : prototype
                   ? "error: AddProperty: Wrong call, should not have prototype." + Report("condition !m_pPrototype")
               : Add(iName, iType) ? "ok"
                                   : "error: AddProperty: property not instanciated";
    }

    std::string AddDeclared(const Name& iName)
    {
        const char* const isAvailable = "condition ZrvProperties::zrvPA_Unavailable!=propertyAvailability";
        return iName == ""                                                 ? "error" + Nothing("iPropertyName")
               : !prototype                                                ? "error" + Report("pointer m_pPrototype")
               : !Availability(iName)                                      ? "error" + Report(isAvailable)
               : Has(iName) || Add(iName, prototype->declared[iName].type) ? "ok"
                                                                           : "error";
    }

    std::string Set(const Name& iName, const ValueModel& iValue)
    {
        if (iName == "" || TypeOf(iValue) == "") {
            return "error" + Nothing(iName == "" ? "iPropertyName" : "iValue.GetType()");
        }
        if (Held(iName).index() != iValue.index()) {
            const char* const what = "condition m_value->SetValueFromProperty(iValue)";
            return "error" + (Has(iName) ? Report(what, "ZrvProperty") : "");
        }
        held[iName] = iValue;
        return "ok";
    }

    /// The source's names come in the order in which the real source lists them.
    std::string Copy(const SetModel& iSource, const KELListValKELUnicodeString& iOrder)
    {
        for (int i = 1; i <= iOrder.Size(); ++i) {
            if (!Availability(iOrder[i]) ||
                (Has(iOrder[i]) && Held(iOrder[i]).index() != iSource.Held(iOrder[i]).index())) {
                return "error";
            }
        }
        for (int i = 1; i <= iOrder.Size(); ++i) {
            const Name& name = iOrder[i];
            const ValueModel value = iSource.Held(name);
            std::string answer = Has(name) ? "ok" : prototype ? AddDeclared(name) : AddTyped(name, TypeOf(value));
            if (answer != "ok") {
                return answer + Report("condition !(rc.IsError())");
            }
            answer = Set(name, value);
            if (answer != "ok") {
                return answer + Report("condition !( SetProperty_Int(propertyName_in,*(m_pValue_in)).IsError() )");
            }
        }
        return "ok";
    }

    PrototypeModel* prototype = nullptr;
    std::map<Name, ValueModel, SortsFirst> held;

private:
    bool Add(const Name& iName, const Name& iType)
    {
        const ValueModel value = DefaultValue(iType);
        return Has(iName) || (TypeOf(value) != "" && held.insert({iName, value}).second);
    }
};

#endif
