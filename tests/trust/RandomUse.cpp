#include "RandomUse.h"

#include "ZrvDebugServices.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <stdexcept>

namespace {

const std::string g_goodNames[] = {"width", "height", "rate", "title", "a", "A", "\xC3\xA9", "e\xCC\x81"};
const std::string g_badNames[] = {"", "", "undeclared", "\xC3", "\xFF\xFE", "width ", std::string(3000, 'x')};
const std::string g_badTypes[] = {"", "", "i", "int", "Float", "float ", "KELINT", "\xC0\x80"};

unsigned char g_bytes[2];

// A set as a caller may derive one, for which the library has no short cuts.
class DerivedSet : public ZrvProperties {
public:
    using ZrvProperties::ZrvProperties;
};

PrototypeRef None()
{
    return nullptr;
}

} // namespace

RandomUse::RandomUse(Choices& ioChoices) : m_choices(ioChoices), m_objects(3), m_prototypes(4), m_sets(4), m_values(5)
{
    PrototypeModel::s_made = 0; // the same use for the same choices
    for (Object& object : m_objects) {
        object.reset(new CountedObject);
    }
    for (PrototypeRef& prototype : m_prototypes) {
        prototype = std::make_shared<PrototypeModel>();
    }
    for (Set& set : m_sets) {
        set.real = std::make_unique<ZrvProperties>();
    }
    for (Value& value : m_values) {
        value.real = MakeValue(value.model = std::monostate());
    }
}

RandomUse::~RandomUse()
{
    for (const PrototypeRef& prototype : m_prototypes) {
        prototype->real->Release();
    }
}

void RandomUse::Step()
{
    static constexpr std::pair<const char*, Operation> kOperations[] = {
        {"NewSet", &RandomUse::NewSet},
        {"CopySet", &RandomUse::CopySet},
        {"AssignSet", &RandomUse::AssignSet},
        {"AddTyped", &RandomUse::AddTyped},
        {"AddTyped", &RandomUse::AddTyped},
        {"AddDeclared", &RandomUse::AddDeclared},
        {"AddDeclared", &RandomUse::AddDeclared},
        {"SetValue", &RandomUse::SetValue},
        {"SetValue", &RandomUse::SetValue},
        {"SetFrom", &RandomUse::SetFrom},
        {"QueryName", &RandomUse::QueryName},
        {"QueryPrototypeOfSet", &RandomUse::QueryPrototypeOfSet},
        {"ListSet", &RandomUse::ListSet},
        {"NewPrototype", &RandomUse::NewPrototype},
        {"Declare", &RandomUse::Declare},
        {"Declare", &RandomUse::Declare},
        {"Declare", &RandomUse::Declare},
        {"Undeclare", &RandomUse::Undeclare},
        {"QueryDeclaration", &RandomUse::QueryDeclaration},
        {"NewValue", &RandomUse::NewValue},
        {"AssignValue", &RandomUse::AssignValue},
        {"CompareValues", &RandomUse::CompareValues},
        {"DuplicateValue", &RandomUse::DuplicateValue},
        {"UseMap", &RandomUse::UseMap},
        {"UseMap", &RandomUse::UseMap},
        {"WalkMap", &RandomUse::WalkMap},
        {"UseCode", &RandomUse::UseCode},
        {"ConvertResult", &RandomUse::ConvertResult},
    };
    const auto& [name, operation] = kOperations[m_choices.Below(std::size(kOperations))];
    ++m_steps;
    m_operation = name;
    m_isBad = m_choices.Below(2) == 0;
    (this->*operation)();
    Expect(m_recorder.Take(), Nothing(), "reports left over");
    CheckCounts();
    if (m_steps % 64 == 0) {
        CheckState();
    }
}

const std::string& RandomUse::Name()
{
    return IsBad() ? g_badNames[m_choices.Below(std::size(g_badNames))]
                   : g_goodNames[m_choices.Below(std::size(g_goodNames))];
}

std::string RandomUse::TypeName()
{
    return IsBad() ? g_badTypes[m_choices.Below(std::size(g_badTypes))]
                   : Text(ZrvPropertyTypeConv::GetAsUnicode(
                         static_cast<ZrvPropertyType>(m_choices.Below(zrvPT_Undefined))));
}

ValueModel RandomUse::AnyValue()
{
    const auto number = static_cast<KELINT32>(m_choices.Below(5)) - 2;
    const float odd = number == 2 ? std::numeric_limits<float>::quiet_NaN() : static_cast<float>(number) * 0.5F;
    switch (IsBad() ? zrvPT_Undefined : static_cast<int>(m_choices.Below(zrvPT_Undefined))) {
    case zrvPT_BytePtr:
        return number > 0 ? g_bytes + number - 1 : static_cast<unsigned char*>(nullptr);
    case zrvPT_UnicodeString:
        return g_badNames[static_cast<std::size_t>(number + 2)];
    case zrvPT_Boolean:
        return static_cast<KELBoolean>(number);
    case zrvPT_INT32:
        return number;
    case zrvPT_UINT32:
        return static_cast<KELUINT32>(number);
    case zrvPT_Float:
        return odd == 0.0F ? -0.0F : odd;
    case zrvPT_Double:
        return static_cast<double>(odd);
    case zrvPT_FloatList:
        return std::vector<float>(static_cast<std::size_t>(number + 2), odd);
    case zrvPT_BaseUnknownPtr:
        return number > 0 ? Any(m_objects).get() : static_cast<KELSysTSBaseUnknown*>(nullptr);
    default:
        return std::monostate();
    }
}

// Only an older prototype is nested into another, so that no two keep each other alive.
PrototypeRef RandomUse::Nested(int iOlderThan)
{
    const PrototypeRef& nested = Any(m_prototypes);
    return m_choices.Below(2) == 0 && nested->age < iOlderThan ? nested : nullptr;
}

void RandomUse::NewSet()
{
    Set& set = Any(m_sets);
    set.model = {m_choices.Below(3) == 0 ? None() : Any(m_prototypes), {}};
    ZrvPrototypeImpl* const prototype = set.model.prototype ? set.model.prototype->real : nullptr;
    set.real.reset(m_choices.Below(2) == 0 ? new ZrvProperties(prototype) : new DerivedSet(prototype));
}

void RandomUse::CopySet()
{
    const Set& source = Any(m_sets);
    Set copy = {std::make_unique<ZrvProperties>(*source.real), source.model};
    CheckSet(copy);
    Any(m_sets) = std::move(copy);
}

void RandomUse::AssignSet()
{
    Set& set = Any(m_sets);
    const Set& source = Any(m_sets);
    const std::vector<std::string> order = Order(source);
    *set.real = *source.real;
    ExpectOutcome(ZrvRC(), set.model.Assign(source.model, order));
    CheckSet(set);
}

void RandomUse::AddTyped()
{
    Set& set = Any(m_sets);
    const std::string name = Name();
    const std::string type = TypeName();
    const PrototypeRef nested = Nested(std::numeric_limits<int>::max());
    ExpectOutcome(set.real->AddProperty(name.c_str(), type.c_str(), nested ? nested->real : nullptr),
                  set.model.AddTyped(name, type, nested));
}

void RandomUse::AddDeclared()
{
    Set& set = Any(m_sets);
    const std::string name = Name();
    ExpectOutcome(set.real->AddProperty(name.c_str()), set.model.AddDeclared(name));
}

void RandomUse::SetValue()
{
    Set& set = Any(m_sets);
    const std::string name = Name();
    const auto property = set.model.held.find(name);
    ValueModel value = AnyValue();
    // A value of another type is what would be drawn mostly; half of the time it fits.
    for (int i = 0; i < 20 && !m_isBad && property != set.model.held.end(); ++i) {
        value = property->second.value.index() == value.index() ? value : AnyValue();
    }
    ExpectOutcome(set.real->SetProperty(name.c_str(), *MakeValue(value, m_choices.Below(4) == 0)),
                  set.model.Set(name, value));
}

void RandomUse::SetFrom()
{
    Set& set = Any(m_sets);
    const Set& source = Any(m_sets);
    const std::vector<std::string> order = Order(source);
    ExpectOutcome(set.real->SetFromProperties(*source.real),
                  &set == &source ? Outcome{ZrvRC::zrvEC_NothingDone, "", {}} : set.model.Copy(source.model, order));
    CheckSet(set);
}

void RandomUse::QueryName()
{
    const Set& set = Any(m_sets);
    const std::string name = Name();
    const auto property = set.model.held.find(name);
    const bool isHeld = property != set.model.held.end();
    const auto reported = [&name](const char* iFile) {
        return name.empty() ? Condition("iPropertyName.GetLengthInChar()>0", iFile) : Nothing();
    };
    Expect(set.real->HasProperty(name.c_str()), isHeld ? 1 : 0, "HasProperty");
    Expect(m_recorder.Take(), Nothing(), "reports of HasProperty");
    Expect(static_cast<int>(set.real->GetAvailability(name.c_str())), set.model.Availability(name), "availability");
    Expect(m_recorder.Take(), reported("ZrvProperties_data"), "reports of GetAvailability");
    Expect(Text(set.real->GetPropertyType(name.c_str())), isHeld ? TypeOf(property->second.value) : "", "type");
    Expect(m_recorder.Take(), reported("ZrvProperties_data"), "reports of GetPropertyType");
    const ZrvPropertyValueBase* value = set.real->GetProperty(name.c_str());
    Expect(value != nullptr, isHeld, "GetProperty");
    Expect(m_recorder.Take(), reported("ZrvProperties"), "reports of GetProperty");
    if (value) {
        Expect(Describe(ReadValue(*value)), Describe(property->second.value), "value");
    }
    Expect(set.real->GetPropertyParameters(name.c_str()) == nullptr, true, "parameters");
    Expect(m_recorder.Take(),
           name.empty() ? reported("ZrvProperties")
           : isHeld     ? Nothing()
                        : Pointer("ppProperty", "ZrvProperties_data"),
           "reports of GetPropertyParameters");
}

void RandomUse::QueryPrototypeOfSet()
{
    const Set& set = Any(m_sets);
    const PrototypeRef& other = Any(m_prototypes);
    ZrvConstPropertiesPrototype* prototype = IsBad() ? other->real : nullptr;
    if (prototype) {
        ExpectOutcome(set.real->GetPrototype(prototype), Outcome::Error(Condition("!ioPrototype", "ZrvProperties")));
        Expect<ZrvConstPropertiesPrototype*>(prototype, other->real, "the out-parameter of a refusal");
    } else {
        ExpectOutcome(set.real->GetPrototype(prototype), {});
        ExpectPrototype(prototype, set.model.prototype);
    }
}

void RandomUse::ListSet()
{
    CheckSet(Any(m_sets));
}

void RandomUse::NewPrototype()
{
    PrototypeRef& prototype = Any(m_prototypes);
    prototype->real->Release();
    prototype = std::make_shared<PrototypeModel>();
}

void RandomUse::Declare()
{
    const PrototypeRef& prototype = Any(m_prototypes);
    const std::string name = Name();
    const PrototypeRef nested = Nested(prototype->age);
    ZrvPrototypeImpl* const real = nested ? nested->real : nullptr;
    if (m_choices.Below(2) == 0) {
        const std::string type = TypeName();
        ExpectOutcome(prototype->real->AddProperty(name.c_str(), type.c_str(), real),
                      prototype->Declare(name, type, nested));
    } else {
        const auto type = static_cast<ZrvPropertyType>(static_cast<int>(m_choices.Below(12)) - 1);
        const std::string typeName =
            type >= 0 && type < zrvPT_Undefined ? Text(ZrvPropertyTypeConv::GetAsUnicode(type)) : std::string();
        ExpectOutcome(prototype->real->AddProperty(name.c_str(), type, real),
                      prototype->Declare(name, typeName, nested));
    }
}

void RandomUse::Undeclare()
{
    const PrototypeRef& prototype = Any(m_prototypes);
    const std::string name = Name();
    const ZrvRC rc = prototype->real->RemoveProperty(name.c_str());
    ExpectOutcome(rc, prototype->declared.erase(name) != 0 ? Outcome() : Outcome::Error());
}

void RandomUse::QueryDeclaration()
{
    const PrototypeRef& prototype = Any(m_prototypes);
    const std::string name = Name();
    const auto found = prototype->declared.find(name);
    const bool isDeclared = found != prototype->declared.end();
    const Declaration declaration = isDeclared ? found->second : Declaration();
    const ZrvPrototypeImpl& real = *prototype->real;
    ExpectOutcome(real.HasProperty(name.c_str()), isDeclared ? Outcome() : Outcome::Error());
    Expect(Text(real.GetPropertyType(name.c_str())), declaration.type, "declared type name");
    const ValueModel value = DefaultValue(declaration.type);
    Expect(static_cast<std::size_t>(real.GetPropertyAsType(name.c_str())), value.index(), "declared type");
    ExpectPrototype(real.GetPropertyPrototype(name.c_str()), declaration.nested);
    ZrvConstPropertiesPrototype* const before = Any(m_prototypes)->real;
    ZrvConstPropertiesPrototype* nested = before;
    ExpectOutcome(prototype->real->GetPropertyPrototype(name.c_str(), nested),
                  isDeclared ? Outcome() : Outcome::Error());
    if (isDeclared) {
        ExpectPrototype(nested, declaration.nested);
    } else {
        Expect(nested, before, "the out-parameter of an undeclared name");
    }
}

void RandomUse::NewValue()
{
    Value& value = Any(m_values);
    value.model = AnyValue();
    value.real = MakeValue(value.model, m_choices.Below(4) == 0);
}

void RandomUse::AssignValue()
{
    Value& value = Any(m_values);
    const Value& other = Any(m_values);
    const bool isTyped = !TypeOf(value.model).empty();
    const bool fits = isTyped && value.model.index() == other.model.index();
    ExpectOutcome(value.real->SetValueFromProperty(*other.real),
                  fits ? Outcome()
                  : isTyped
                      ? Outcome::Error()
                      : Outcome::Error(Message("Property value wihtout type cannot be set.", "ZrvPropertyValueBase")));
    value.model = fits ? other.model : value.model;
    Expect(Describe(ReadValue(*value.real)), Describe(value.model), "value after assignment");
}

void RandomUse::CompareValues()
{
    const Value& value = Any(m_values);
    const Value& other = Any(m_values);
    Expect(value.real->IsPurelyIdenticalTo(*other.real), !TypeOf(value.model).empty() && value.model == other.model,
           "IsPurelyIdenticalTo");
}

void RandomUse::DuplicateValue()
{
    const Value& source = Any(m_values);
    std::unique_ptr<ZrvPropertyValueBase> copy(source.real->Duplicate());
    Expect(copy == nullptr, TypeOf(source.model).empty(), "Duplicate");
    if (copy) {
        Expect(Describe(ReadValue(*copy)), Describe(source.model), "duplicate");
        Any(m_values) = {std::move(copy), ValueModel(source.model)};
    }
}

void RandomUse::UseMap()
{
    const std::size_t chosen = m_choices.Below(400);
    const std::string name = IsBad() ? Name() : "key" + std::to_string(chosen);
    const auto found = m_mapModel.find(name);
    const int held = found == m_mapModel.end() ? 0 : 1;
    const int* const located = m_map.Locate(name.c_str());
    Expect(located ? *located : -1, held == 1 ? found->second : -1, "Locate");
    Expect(m_map.Contains(name.c_str()), held, "Contains");
    switch (m_choices.Below(8)) {
    case 0:
    case 1:
        Expect(m_map.Remove(name.c_str()), held, "Remove");
        m_mapModel.erase(name);
        break;
    case 2:
        if (m_choices.Below(500) == 0) {
            m_map.RemoveAll();
            m_mapModel.clear();
        }
        break;
    default:
        Expect(m_map.Insert(name.c_str(), m_steps), 1 - held, "Insert");
        m_mapModel[name] = m_steps;
    }
    Expect(m_map.Size(), static_cast<int>(m_mapModel.size()), "Size");
}

void RandomUse::WalkMap()
{
    if (m_choices.Below(16) != 0) {
        return; // a walk is long and changes nothing
    }
    std::map<std::string, int> met;
    KELSYPHashMapIteratorHolder<KELUnicodeString, int> it(m_map);
    for (; !it.IsDone(); it.Next()) {
        met[Text(*it.CurrentItem()->pKey)] = *it.CurrentItem()->pValue;
    }
    Expect(met, m_mapModel, "what a walk over the map meets");
    Expect(it.CurrentItem() == nullptr, true, "the item behind the last");
}

void RandomUse::UseCode()
{
    const std::string text = m_codeModel.trace.size() > 200 ? std::string() : Name().substr(0, 9);
    if (text.empty()) {
        m_code = ZrvRC(ZrvRC::zrvEC_NothingDone, text.c_str());
        m_codeModel = {ZrvRC::zrvEC_NothingDone, "", {}};
    } else if (m_choices.Below(2) == 0) {
        m_code.AddTrace(text.c_str());
        m_codeModel.trace += text;
    } else {
        const auto code = static_cast<ZrvRC::ErrorCode>(static_cast<KELUINT32>(m_choices.Below(4)) - 1U);
        m_code.Add(ZrvRC(code, text.c_str()));
        m_codeModel.trace += (m_codeModel.trace.empty() ? "" : "\n") + text;
        m_codeModel.code = code;
    }
    m_code.Add(m_code);
    ExpectOutcome(m_code, m_codeModel);
    KELUnicodeString prefix("> ");
    std::string lines = "> " + m_codeModel.trace;
    for (std::size_t at = lines.find('\n'); at != lines.npos; at = lines.find('\n', at + 1)) {
        lines.insert(at + 1, "> ");
    }
    Expect(Text(ZrvRC::InsertLinesBegin(m_code.GetTrace(), prefix)), lines, "InsertLinesBegin");
}

void RandomUse::ConvertResult()
{
    static constexpr std::pair<KELUINT32, const char*> kResults[] = {
        {0, ""},
        {1, ""},
        {0x7FFFFFFFU, ""},
        {0x80004003U, "E_POINTER : NULL pointer argument."},
        {0x80004005U, "E_FAIL : Failure."},
        {0xFFFFFFFEU, "Unknown error hresult."},
    };
    const auto& [result, trace] = kResults[m_choices.Below(std::size(kResults))];
    const long wide = IsBad() ? static_cast<long>(result) : static_cast<long>(static_cast<KELINT32>(result));
    ExpectOutcome(ZrvRC(wide), *trace ? Outcome::Error({}, trace) : Outcome());
}

void RandomUse::Fail(const std::string& iWhat) const
{
    throw std::logic_error(std::string(m_operation) + ", step " + std::to_string(m_steps) + ": " + iWhat);
}

void RandomUse::ExpectOutcome(ZrvRC iReal, const Outcome& iModel)
{
    const Outcome real = {iReal.GetRC(), Text(iReal.GetTrace()), m_recorder.Take()};
    if (iReal.IsError() || !real.reports.empty()) {
        ++m_refused;
    }
    Expect(real.code, iModel.code, "code");
    Expect(real.trace, iModel.trace, "trace");
    Expect(real.reports, iModel.reports, "reports");
    Expect(iReal.IsError(), static_cast<KELUINT32>(iModel.code) > 1, "IsError");
}

void RandomUse::ExpectPrototype(ZrvConstPropertiesPrototype* iReal, const PrototypeRef& iModel)
{
    Expect<ZrvConstPropertiesPrototype*>(iReal, iModel ? iModel->real : nullptr, "prototype");
    if (iReal) {
        iReal->Release();
    }
}

std::vector<std::string> RandomUse::Order(const Set& iSet)
{
    KELListValKELUnicodeString names;
    KELSysTSListOfUnicodeString narrow;
    names.Append("first");
    const int count = iSet.real->GetListProperties(names);
    Expect(iSet.real->GetListProperties(narrow), count, "the two counts of names");
    Expect(names.Size() == count + 1 && narrow.Size() == count && names[1] == "first", true, "sizes of the lists");
    std::vector<std::string> order;
    for (int position = 1; position <= count; ++position) {
        order.push_back(Text(names[position + 1]));
        Expect(std::string(narrow[position].ConvertToChar()), order.back(), "narrow name");
    }
    return order;
}

void RandomUse::CheckSet(const Set& iSet)
{
    std::vector<std::string> order = Order(iSet);
    std::sort(order.begin(), order.end());
    Expect(order.size(), iSet.model.held.size(), "number of properties");
    std::size_t index = 0;
    for (const auto& [name, property] : iSet.model.held) {
        Expect(order[index++], name, "names of properties");
        Expect(Describe(ReadValue(*iSet.real->GetProperty(name.c_str()))), Describe(property.value), "value held");
    }
}

void RandomUse::CheckCounts()
{
    for (const PrototypeRef& prototype : m_prototypes) {
        Expect(static_cast<long>(CountOf(*prototype->real)), prototype.use_count(), "references on a prototype");
    }
    Expect(WatchedPrototype::s_alive, PrototypeModel::s_alive, "prototypes alive");
}

void RandomUse::CheckState()
{
    for (const Object& object : m_objects) {
        KELUINT32 count = 1;
        const auto counted = [&count, &object](const ValueModel& iValue) {
            const auto* const held = std::get_if<KELSysTSBaseUnknown*>(&iValue);
            count += held && *held == object.get() ? 1 : 0;
        };
        for (const Set& set : m_sets) {
            for (const auto& [name, property] : set.model.held) {
                counted(property.value);
            }
        }
        for (const Value& value : m_values) {
            counted(value.model);
        }
        Expect(CountOf(*object), count, "references on an object");
    }
    for (const Set& set : m_sets) {
        CheckSet(set);
    }
    for (const PrototypeRef& prototype : m_prototypes) {
        KELListValKELUnicodeString names;
        ExpectOutcome(prototype->real->GetListProperties(names), {});
        std::map<std::string, std::string> listed;
        std::map<std::string, std::string> declared;
        for (int position = 1; position <= names.Size(); ++position) {
            listed[Text(names[position])] = Text(prototype->real->GetPropertyType(names[position]));
        }
        for (const auto& [name, declaration] : prototype->declared) {
            declared[name] = declaration.type;
        }
        Expect(listed, declared, "declarations");
        Expect(names.Size(), static_cast<int>(declared.size()), "number of declarations");
    }
    Expect(m_recorder.Take(), Nothing(), "reports of reading");
}
