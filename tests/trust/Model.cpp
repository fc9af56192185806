#include "Model.h"

#include "ZrvProperties.h"

namespace {

constexpr char g_nameIsThere[] = "iPropertyName.GetLengthInChar()>0";
constexpr char g_data[] = "ZrvProperties_data";

} // namespace

Outcome PrototypeModel::Declare(const std::string& iName, const std::string& iType, const PrototypeRef& iNested)
{
    if (iName.empty() || iType.empty()) {
        return Outcome::Error();
    }
    const auto found = declared.find(iName);
    if (found == declared.end()) {
        declared[iName] = {iType, iNested};
        return {};
    }
    if (found->second.type != iType || (iNested && found->second.nested)) {
        return Outcome::Error();
    }
    if (iNested) {
        found->second.nested = iNested;
    }
    return {};
}

int SetModel::Availability(const std::string& iName) const
{
    if (iName.empty()) {
        return ZrvProperties::zrvPA_Unavailable;
    }
    if (held.count(iName) != 0) {
        return ZrvProperties::zrvPA_Instantiated;
    }
    return !prototype || prototype->declared.count(iName) != 0 ? ZrvProperties::zrvPA_Available
                                                               : ZrvProperties::zrvPA_Unavailable;
}

Outcome SetModel::AddTyped(const std::string& iName, const std::string& iType, const PrototypeRef& iNested)
{
    if (iName.empty()) {
        return Outcome::Error(Condition(g_nameIsThere, "ZrvProperties"));
    }
    if (iType.empty()) {
        return Outcome::Error(Condition("iPropertyType.GetLengthInChar()>0", "ZrvProperties"));
    }
    if (prototype) {
        return Outcome::Error(Condition("!m_pPrototype", g_data),
                              "AddProperty: Wrong call, should not have prototype.");
    }
    const ValueModel value = DefaultValue(iType);
    if (held.count(iName) == 0) {
        if (TypeOf(value).empty()) {
            return Outcome::Error({}, "AddProperty: property not instanciated");
        }
        held[iName] = {value, iNested};
    }
    return {};
}

Outcome SetModel::AddDeclared(const std::string& iName)
{
    if (iName.empty()) {
        return Outcome::Error(Condition(g_nameIsThere, "ZrvProperties"));
    }
    if (!prototype) {
        return Outcome::Error(Pointer("m_pPrototype", g_data));
    }
    if (held.count(iName) != 0) {
        return {};
    }
    const auto declaration = prototype->declared.find(iName);
    if (declaration == prototype->declared.end()) {
        return Outcome::Error(Condition("ZrvProperties::zrvPA_Unavailable!=propertyAvailability", g_data));
    }
    const ValueModel value = DefaultValue(declaration->second.type);
    if (TypeOf(value).empty()) {
        return Outcome::Error();
    }
    held[iName] = {value, declaration->second.nested};
    return {};
}

Outcome SetModel::Set(const std::string& iName, const ValueModel& iValue)
{
    if (iName.empty()) {
        return Outcome::Error(Condition(g_nameIsThere, "ZrvProperties"));
    }
    if (TypeOf(iValue).empty()) {
        return Outcome::Error(Condition("iValue.GetType().GetLengthInChar()>0", "ZrvProperties"));
    }
    const auto property = held.find(iName);
    if (property == held.end()) {
        return Outcome::Error();
    }
    if (property->second.value.index() != iValue.index()) {
        return Outcome::Error(Condition("m_value->SetValueFromProperty(iValue)", "ZrvProperty"));
    }
    property->second.value = iValue;
    return {};
}

Outcome SetModel::Copy(const SetModel& iSource, const std::vector<std::string>& iOrder)
{
    for (const std::string& name : iOrder) {
        const auto property = held.find(name);
        if (Availability(name) == ZrvProperties::zrvPA_Unavailable ||
            (property != held.end() && property->second.value.index() != iSource.held.at(name).value.index())) {
            return Outcome::Error();
        }
    }
    for (const std::string& name : iOrder) {
        const ValueModel& value = iSource.held.at(name).value;
        Outcome outcome = held.count(name) != 0 ? Outcome()
                          : prototype           ? AddDeclared(name)
                                                : AddTyped(name, TypeOf(value), nullptr);
        const char* failed = "!(rc.IsError())";
        if (outcome == Outcome()) {
            outcome = Set(name, value);
            failed = "!( SetProperty_Int(propertyName_in,*(m_pValue_in)).IsError() )";
        }
        if (outcome != Outcome()) {
            outcome.reports.push_back({kelCF_Condition, failed, g_data});
            return outcome;
        }
    }
    return {};
}

Outcome SetModel::Assign(const SetModel& iSource, const std::vector<std::string>& iOrder)
{
    if (&iSource == this) {
        return {};
    }
    prototype = iSource.prototype;
    held.clear();
    return {ZrvRC::zrvEC_OK, "", Copy(iSource, iOrder).reports}; // an assignment has no result, only reports
}
