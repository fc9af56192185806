#include "RandomState.h"

#include <limits>

namespace {

// The first two have the same hash.
const std::string g_goodNames[] = {"rate73436", "rate73804", "rate", "title", "a", "A", "\xC3\xA9", "e\xCC\x81"};
const std::string g_badNames[] = {"", "", "undeclared", "\xC3", "\xFF\xFE", "width ", std::string(3000, 'x')};
const std::string g_badTypes[] = {"", "", "i", "int", "Float", "float ", "KELINT", "\xC0\x80"};

unsigned char g_bytes[2];

} // namespace

RandomState::RandomState(Choices& ioChoices, Maker* ioOther)
    : m_choices(ioChoices), m_makers{&m_own, ioOther ? ioOther : &m_own}
{
    for (PrototypeRef& prototype : m_prototypes) {
        prototype = MakePrototype();
    }
    for (Set& set : m_sets) {
        set.real = std::make_unique<ZrvProperties>();
    }
    for (Value& value : m_values) {
        value.real = MakeValue(value.model = std::monostate());
    }
}

RandomState::~RandomState()
{
    for (const PrototypeRef& prototype : m_prototypes) {
        prototype->real->Release();
    }
}

const std::string& RandomState::Name()
{
    return IsBad() ? Any(g_badNames) : Any(g_goodNames);
}

std::string RandomState::TypeName()
{
    const std::size_t type = m_choices.Below(zrvPT_Undefined);
    return IsBad() ? Any(g_badTypes) : g_typeNames[type];
}

ValueModel RandomState::AnyValue()
{
    const auto number = static_cast<KELINT32>(m_choices.Below(5)) - 2;
    const auto size = static_cast<std::size_t>(number + 2);
    const float zero = m_steps % 2 == 0 ? -0.0F : 0.0F;
    const float odd = number == 2   ? std::numeric_limits<float>::quiet_NaN()
                      : number == 0 ? zero
                                    : static_cast<float>(number) * 0.5F;
    unsigned char* const bytes[] = {nullptr, nullptr, nullptr, &g_bytes[0], &g_bytes[1]};
    KELSysTSBaseUnknown* const objects[] = {nullptr, nullptr, &m_objects[0], &m_objects[1], &m_objects[2]};
    const ValueModel values[] = {bytes[size],
                                 g_badNames[size],
                                 KELBoolean(number),
                                 number,
                                 KELUINT32(number),
                                 odd,
                                 static_cast<double>(odd),
                                 std::vector<float>(size, odd),
                                 objects[size]};
    return IsBad() ? ValueModel(std::monostate()) : Any(values);
}

const PrototypeRef& RandomState::Nested(int iOlderThan)
{
    const PrototypeRef& nested = Any(m_prototypes);
    return m_choices.Below(2) == 0 && nested->age < iOlderThan ? nested : m_none;
}

void RandomState::Fail(const std::string& iWhat) const
{
    throw std::logic_error("step " + std::to_string(m_steps) + ", operation " + std::to_string(m_operation) + ": " +
                           iWhat);
}

void RandomState::ExpectOutcome(ZrvRC iReal, const Outcome& iModel)
{
    m_counts.refused += iReal.IsError() || !iModel.reports.empty() ? 1 : 0;
    Expect(iReal.GetRC(), iModel.code, "code", iModel.reports);
    Expect(Text(iReal.GetTrace()), iModel.trace, "trace");
}

void RandomState::ExpectPrototype(ZrvConstPropertiesPrototype* iReal, const PrototypeRef& iModel)
{
    Expect<ZrvConstPropertiesPrototype*>(iReal, RealOf(iModel), "prototype");
    if (iReal) {
        iReal->Release();
    }
}

PrototypeRef RandomState::MakePrototype()
{
    ++m_age;
    return std::make_shared<PrototypeModel>(
        m_age, Do([this] { return AnyMaker().MakePrototype(m_age % 2 ? &PrototypeModel::s_realAlive : nullptr); }));
}

std::vector<std::string> RandomState::Order(const Set& iSet)
{
    KELListValKELUnicodeString names;
    KELSysTSListOfUnicodeString narrow;
    names.Append("");
    narrow.PutBack(KELSysTSUnicodeString(nullptr));
    const int count = iSet.real->GetListProperties(names);
    Expect(iSet.real->GetListProperties(narrow), count, "the two counts of names");
    Expect(names.Size() == count + 1 && narrow.Size() == count + 1, true, "sizes of the lists");
    std::vector<std::string> order;
    for (int position = 1; position <= count + 1; ++position) {
        order.push_back(Text(names[position]));
        Expect(std::string(narrow[position].ConvertToChar()), order.back(), "narrow name");
    }
    Expect(names[0] == "" && names[count + 2] == "" && names[-1] == narrow[-1].ConvertToChar(), true, "no name",
           g_noPosition + g_noPosition + g_noPosition + g_noPosition);
    Expect(order[0].empty(), true, "a list is appended to");
    order.erase(order.begin());
    return order;
}

RandomState::Held RandomState::HeldBy(const SetModel& iSet)
{
    Held held;
    for (const auto& [name, property] : iSet.held) {
        held[name] = Describe(property.value);
    }
    return held;
}

RandomState::Held RandomState::HeldBy(const Set& iSet)
{
    Held held;
    for (const std::string& name : Order(iSet)) {
        held[name] = Describe(ReadValue(*iSet.real->GetProperty(name.c_str())));
    }
    return held;
}

void RandomState::TakeOver(Set& ioSet, const Set& iSource, bool iIsAssigned)
{
    const Held held = HeldBy(ioSet);
    SetModel& now = ioSet.model;
    if (iIsAssigned) {
        now = {iSource.model.prototype, {}};
    }
    for (const std::string& name : Order(iSource)) {
        if (HeldBy(now) == held) {
            return;
        }
        now.prototype ? now.AddDeclared(name) : now.AddTyped(name, TypeOf(iSource.model.held.at(name).value), nullptr);
        if (HeldBy(now) == held) {
            return;
        }
        now.Copy(iSource.model, {name});
    }
    Expect(HeldBy(now), held, "what a copy leaves half-way");
}

void RandomState::CheckSet(const Set& iSet)
{
    Expect(HeldBy(iSet), HeldBy(iSet.model), "what a set holds");
    ZrvConstPropertiesPrototype* prototype = nullptr;
    ExpectOutcome(iSet.real->GetPrototype(prototype), {});
    ZrvConstPropertiesPrototype* taken = m_prototypes[0]->real;
    Expect(iSet.real->GetPrototype(taken).IsError() && taken == m_prototypes[0]->real, true, "where a prototype is",
           " [condition !ioPrototype in ZrvProperties]");
    ExpectPrototype(prototype, iSet.model.prototype);
}

void RandomState::CheckPrototypes()
{
    for (const PrototypeRef& prototype : m_prototypes) {
        Expect(static_cast<long>(CountOf(*prototype->real)), prototype.use_count(), "references on a prototype");
    }
    Expect(PrototypeModel::s_realAlive, PrototypeModel::s_alive, "prototypes alive");
}

void RandomState::Check()
{
    std::map<KELSysTSBaseUnknown*, KELUINT32> counts;
    const auto count = [&counts](const ValueModel& iValue) {
        const auto* const held = std::get_if<KELSysTSBaseUnknown*>(&iValue);
        ++counts[held ? *held : nullptr];
    };
    for (const Set& set : m_sets) {
        CheckSet(set);
        for (const auto& [name, property] : set.model.held) {
            count(property.value);
        }
    }
    for (const Value& value : m_values) {
        Expect(Describe(ReadValue(*value.real)), Describe(value.model), "value");
        count(value.model);
    }
    for (CountedObject& object : m_objects) {
        Expect(CountOf(object), 1 + counts[&object], "references on an object");
    }
    CheckPrototypes();
    for (const PrototypeRef& prototype : m_prototypes) {
        KELListValKELUnicodeString names;
        names.Append("first");
        ExpectOutcome(prototype->real->GetListProperties(names), {});
        ExpectOutcome(prototype->real->IsValid(), {});
        Held listed;
        Held declared;
        for (int position = 2; position <= names.Size(); ++position) {
            listed[Text(names[position])] = Text(prototype->real->GetPropertyType(names[position]));
        }
        for (const auto& [name, declaration] : prototype->declared) {
            declared[name] = declaration.type;
        }
        Expect(listed, declared, "declarations");
        Expect(static_cast<std::size_t>(names.Size()), 1 + declared.size(), "number of declarations");
    }
    for (const Floats& floats : m_floats) {
        Expect(Describe(ToModel(floats.real)), Describe(floats.model), "list");
    }
    Held met;
    for (KELSYPHashMapIteratorHolder<KELUnicodeString, KELUnicodeString> it(m_map); !it.IsDone(); it.Next()) {
        met[Text(*it.CurrentItem()->pKey)] = Text(*it.CurrentItem()->pValue);
        Expect<const KELUnicodeString*>(m_map.Locate(*it.CurrentItem()->pKey), it.CurrentItem()->pValue,
                                        "where an entry is found");
    }
    Expect(met, m_mapModel, "what a walk over the map meets");
    Expect(Text(m_text), m_textModel, "text");
    ExpectOutcome(m_code, m_codeModel);
}
