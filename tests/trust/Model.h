#ifndef Model_H
#define Model_H

#include "ValueModel.h"
#include "ZrvProperties.h"
#include "ZrvPrototypeImpl.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

/// What an operation is to answer, and the failed checks that it is to report.
struct Outcome {
    ZrvRC::ErrorCode code = ZrvRC::zrvEC_OK;
    std::string trace;
    std::string reports;

    static Outcome Error(const std::string& iReports = "", const char* iTrace = "")
    {
        return {ZrvRC::zrvEC_Error, iTrace, iReports};
    }
    friend bool operator==(const Outcome&, const Outcome&) = default;
};

struct PrototypeModel;
/// Counts as the real references do: what holds a prototype holds one of these.
using PrototypeRef = std::shared_ptr<PrototypeModel>;

struct PrototypeModel {
    struct Declaration {
        std::string type;
        PrototypeRef nested;
    };

    PrototypeModel(int iAge, ZrvPrototypeImpl* iReal) : age(iAge), real(iReal) { s_alive += IsWatched(); }
    PrototypeModel(const PrototypeModel&) = delete;
    PrototypeModel& operator=(const PrototypeModel&) = delete;
    ~PrototypeModel() { s_alive -= IsWatched(); }

    Outcome Declare(const std::string& iName, const std::string& iType, const PrototypeRef& iNested)
    {
        const auto found = declared.find(iName);
        const bool isNew = found == declared.end();
        if (iName.empty() || iType.empty() ||
            (!isNew && (found->second.type != iType || (iNested && found->second.nested)))) {
            return Outcome::Error();
        }
        declared[iName] = {iType, isNew || iNested ? iNested : found->second.nested};
        return {};
    }

    /// Every other one is counted; the rest are of the library's own class, for which it has short cuts.
    int IsWatched() const { return age % 2; }

    int age;
    ZrvPrototypeImpl* real; // gone when this is
    std::map<std::string, Declaration> declared;
    static inline int s_alive = 0;     // of those that are counted
    static inline int s_realAlive = 0; // real ones, which count themselves
};

inline const std::string g_noTypeToSet =
    " [message Property value wihtout type cannot be set. in ZrvPropertyValueBase]";
inline const std::string g_noPosition = " [condition 1<=iPosition && iPosition<=Size() in KELPositions]";
inline const std::string g_noName = " [condition iPropertyName.GetLengthInChar()>0 in ZrvProperties]";
inline const std::string g_noNameInData = " [condition iPropertyName.GetLengthInChar()>0 in ZrvProperties_data]";

/// A property set as maps and plain values. The names of a source come in the order in which the real set lists them.
struct SetModel {
    struct Property {
        ValueModel value;
        PrototypeRef nested;
    };

    int Availability(const std::string& iName) const
    {
        return iName.empty()                                         ? ZrvProperties::zrvPA_Unavailable
               : held.count(iName) != 0                              ? ZrvProperties::zrvPA_Instantiated
               : !prototype || prototype->declared.count(iName) != 0 ? ZrvProperties::zrvPA_Available
                                                                     : ZrvProperties::zrvPA_Unavailable;
    }

    Outcome AddTyped(const std::string& iName, const std::string& iType, const PrototypeRef& iNested)
    {
        if (iName.empty() || iType.empty()) {
            return Outcome::Error(iName.empty() ? g_noName
                                                : " [condition iPropertyType.GetLengthInChar()>0 in ZrvProperties]");
        }
        if (prototype) {
            return Outcome::Error(" [condition !m_pPrototype in ZrvProperties_data]",
                                  "AddProperty: Wrong call, should not have prototype.");
        }
        return Add(iName, {iType, iNested}, "AddProperty: property not instanciated");
    }

    Outcome AddDeclared(const std::string& iName)
    {
        const bool isDeclared = prototype && prototype->declared.count(iName) != 0;
        if (iName.empty() || !prototype) {
            return Outcome::Error(iName.empty() ? g_noName : " [pointer m_pPrototype in ZrvProperties_data]");
        }
        if (!isDeclared && held.count(iName) == 0) {
            return Outcome::Error(
                " [condition ZrvProperties::zrvPA_Unavailable!=propertyAvailability in ZrvProperties_data]");
        }
        return Add(iName, isDeclared ? prototype->declared[iName] : PrototypeModel::Declaration(), "");
    }

    Outcome Set(const std::string& iName, const ValueModel& iValue)
    {
        const auto property = held.find(iName);
        if (iName.empty() || TypeOf(iValue).empty()) {
            return Outcome::Error(iName.empty() ? g_noName
                                                : " [condition iValue.GetType().GetLengthInChar()>0 in ZrvProperties]");
        }
        if (property == held.end() || property->second.value.index() != iValue.index()) {
            return Outcome::Error(
                property == held.end() ? "" : " [condition m_value->SetValueFromProperty(iValue) in ZrvProperty]");
        }
        property->second.value = iValue;
        return {};
    }

    Outcome Copy(const SetModel& iSource, const std::vector<std::string>& iOrder)
    {
        if (&iSource == this) {
            return {ZrvRC::zrvEC_NothingDone, "", ""};
        }
        for (const std::string& name : iOrder) {
            const auto property = held.find(name);
            if (Availability(name) == ZrvProperties::zrvPA_Unavailable ||
                (property != held.end() && property->second.value.index() != iSource.held.at(name).value.index())) {
                return Outcome::Error();
            }
        }
        for (const std::string& name : iOrder) {
            const ValueModel& value = iSource.held.at(name).value;
            const Outcome added = held.count(name) != 0 ? Outcome()
                                  : prototype           ? AddDeclared(name)
                                                        : AddTyped(name, TypeOf(value), nullptr);
            if (added != Outcome()) {
                return Outcome::Error(added.reports + " [condition !(rc.IsError()) in ZrvProperties_data]");
            }
            const Outcome set = Set(name, value);
            if (set != Outcome()) {
                const char* const what = "!( SetProperty_Int(propertyName_in,*(m_pValue_in)).IsError() )";
                return Outcome::Error(set.reports + " [condition " + what + " in ZrvProperties_data]");
            }
        }
        return {};
    }

    // An assignment has no result, only reports.
    Outcome Assign(const SetModel& iSource, const std::vector<std::string>& iOrder)
    {
        if (&iSource == this) {
            return {};
        }
        prototype = iSource.prototype;
        held.clear();
        return {ZrvRC::zrvEC_OK, "", Copy(iSource, iOrder).reports};
    }

    PrototypeRef prototype;
    std::map<std::string, Property> held;

private:
    Outcome Add(const std::string& iName, const PrototypeModel::Declaration& iDeclaration, const char* iRefusal)
    {
        const ValueModel value = DefaultValue(iDeclaration.type);
        if (held.count(iName) == 0 && TypeOf(value).empty()) {
            return Outcome::Error("", iRefusal);
        }
        held.insert({iName, {value, iDeclaration.nested}}); // changes nothing that is there
        return {};
    }
};

#endif
