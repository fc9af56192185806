#include "RandomUse.h"

#include "CountedObject.h"
#include "KELSYPHashMap.h"
#include "Model.h"
#include "OwnMemory.h"

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

ZrvPrototypeImpl* RealOf(const PrototypeRef& iPrototype)
{
    return iPrototype ? iPrototype->real : nullptr;
}

// The real things with their models, and one operation on them for each member function from NewSet on.
class RandomUse {
public:
    RandomUse(Choices& ioChoices, Memory iMemory) : m_choices(ioChoices)
    {
        s_record = KELSetCheckFailureHandler(&Record);
        for (PrototypeRef& prototype : m_prototypes) {
            prototype = MakePrototype();
        }
        for (Set& set : m_sets) {
            set.real = std::make_unique<ZrvProperties>();
        }
        for (Value& value : m_values) {
            value.real = MakeValue(value.model = std::monostate());
        }
        m_memory = iMemory;
    }
    RandomUse(const RandomUse&) = delete;
    RandomUse& operator=(const RandomUse&) = delete;
    ~RandomUse()
    {
        for (const PrototypeRef& prototype : m_prototypes) {
            prototype->real->Release();
        }
    }

    void Step();
    void CheckState();
    const Counts& Counted() const { return m_counts; }

private:
    struct Set {
        std::unique_ptr<ZrvProperties> real;
        SetModel model;
    };
    struct Value {
        std::unique_ptr<ZrvPropertyValueBase> real;
        ValueModel model;
    };
    struct Floats {
        KELRawCollfloat real;
        std::vector<float> model;
    };

    // Arguments.

    bool IsBad() { return m_isBad && m_choices.Below(2) == 0; }

    template <class All>
    auto& Any(All& ioAll)
    {
        return ioAll[m_choices.Below(std::size(ioAll))];
    }

    const std::string& Name() { return IsBad() ? Any(g_badNames) : Any(g_goodNames); }

    std::string TypeName()
    {
        const auto type = static_cast<ZrvPropertyType>(m_choices.Below(zrvPT_Undefined));
        return IsBad() ? Any(g_badTypes) : Text(ZrvPropertyTypeConv::GetAsUnicode(type));
    }

    ValueModel AnyValue()
    {
        const auto number = static_cast<KELINT32>(m_choices.Below(5)) - 2;
        const float odd = number == 2 ? std::numeric_limits<float>::quiet_NaN() : static_cast<float>(number) * 0.5F;
        const auto size = static_cast<std::size_t>(number + 2);
        KELSysTSBaseUnknown* const objects[] = {nullptr, &m_objects[0], &m_objects[1], &m_objects[2], nullptr};
        switch (IsBad() ? zrvPT_Undefined : static_cast<int>(m_choices.Below(zrvPT_Undefined))) {
        case zrvPT_BytePtr:
            return number > 0 ? g_bytes + number - 1 : static_cast<unsigned char*>(nullptr);
        case zrvPT_UnicodeString:
            return g_badNames[size];
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
            return std::vector<float>(size, odd);
        case zrvPT_BaseUnknownPtr:
            return objects[size];
        default:
            return std::monostate();
        }
    }

    // Only an older prototype is nested into another, so that no two keep each other alive.
    const PrototypeRef& Nested(int iOlderThan)
    {
        const PrototypeRef& nested = Any(m_prototypes);
        return m_choices.Below(2) == 0 && nested->age < iOlderThan ? nested : m_none;
    }

    // Comparisons.

    [[noreturn]] void Fail(const char* iWhat) const
    {
        throw std::logic_error(std::string(m_operation) + ", step " + std::to_string(m_steps) + ": " + iWhat);
    }

    template <class T>
    void Expect(const T& iReal, const T& iModel, const char* iWhat, const std::vector<Report>& iReports = {})
    {
        if (!(iReal == iModel) || m_recorder.Take() != iReports) {
            Fail(iWhat);
        }
    }

    void ExpectPrototype(ZrvConstPropertiesPrototype* iReal, const PrototypeRef& iModel)
    {
        Expect<ZrvConstPropertiesPrototype*>(iReal, RealOf(iModel), "prototype");
        if (iReal) {
            iReal->Release();
        }
    }

    void ExpectOutcome(ZrvRC iReal, const Outcome& iModel)
    {
        m_counts.refused += iReal.IsError() || !iModel.reports.empty() ? 1 : 0;
        Expect(iReal.GetRC(), iModel.code, "code", iModel.reports);
        Expect(Text(iReal.GetTrace()), iModel.trace, "trace");
    }

    // Does something with the real things, at last. Before, when memory is to fail, each of its allocations fails once:
    // the failure leaves it as an exception, and iRecover finds everything as the models say or makes them follow.
    template <class Operation, class Recover>
    auto Do(const Operation& iOperation, const Recover& iRecover)
    {
        for (long allocation = 1;; ++allocation) {
            OwnMemory::FailAt(m_memory == Memory::Behaves ? 0 : allocation, m_memory == Memory::FailsForGood);
            try {
                auto result = iOperation();
                if (OwnMemory::Behave() > 0) {
                    Fail("the failure did not leave the operation");
                }
                return result;
            } catch (const std::bad_alloc&) {
                m_counts.failures += OwnMemory::Behave() > 0 ? 1 : 0;
                m_recorder.Take();
                iRecover();
                CheckState();
            }
        }
    }

    template <class Operation>
    auto Do(const Operation& iOperation)
    {
        return Do(iOperation, [] {});
    }

    // The same with its model, which follows when it has happened.
    template <class Operation, class Model>
    void Both(const Operation& iOperation, const Model& iModel)
    {
        const ZrvRC rc = Do(iOperation);
        ExpectOutcome(rc, iModel());
    }

    std::vector<std::string> Order(const Set& iSet);
    void CheckSet(const Set& iSet);
    void CheckPrototypes();
    void TakeOver(Set& ioSet, const Set& iSource, bool iIsAssigned);

    // Operations.

    PrototypeRef MakePrototype()
    {
        ++m_age;
        ZrvPrototypeImpl* const real = Do([this]() -> ZrvPrototypeImpl* {
            if (m_age % 2 == 0) {
                return new ZrvPrototypeImpl;
            }
            return new WatchedPrototype;
        });
        return std::make_shared<PrototypeModel>(m_age, real);
    }

    void NewSet()
    {
        Set& set = Any(m_sets);
        const PrototypeRef& prototype = m_choices.Below(3) == 0 ? m_none : Any(m_prototypes);
        const bool isDerived = m_choices.Below(2) == 0;
        set.real = Do([&]() -> std::unique_ptr<ZrvProperties> {
            if (isDerived) {
                return std::make_unique<DerivedSet>(RealOf(prototype));
            }
            return std::make_unique<ZrvProperties>(RealOf(prototype));
        });
        set.model = {prototype, {}};
    }

    void CopySet()
    {
        const Set& source = Any(m_sets);
        Set copy = {Do([&] { return std::make_unique<ZrvProperties>(*source.real); }), source.model};
        CheckSet(copy);
        Any(m_sets) = std::move(copy);
    }

    void AssignSet()
    {
        Set& set = Any(m_sets);
        const Set& source = Any(m_sets);
        const std::vector<std::string> order = Order(source);
        Do([&] { return *set.real = *source.real, true; }, [&] { TakeOver(set, source, true); });
        ExpectOutcome(ZrvRC(), set.model.Assign(source.model, order));
        CheckSet(set);
    }

    void SetFrom()
    {
        Set& set = Any(m_sets);
        const Set& source = Any(m_sets);
        const std::vector<std::string> order = Order(source);
        const ZrvRC rc =
            Do([&] { return set.real->SetFromProperties(*source.real); }, [&] { TakeOver(set, source, false); });
        ExpectOutcome(rc, set.model.Copy(source.model, order));
        CheckSet(set);
    }

    void AddTyped()
    {
        Set& set = Any(m_sets);
        const std::string name = Name();
        const std::string type = TypeName();
        const PrototypeRef& nested = Nested(std::numeric_limits<int>::max());
        Both([&] { return set.real->AddProperty(name.c_str(), type.c_str(), RealOf(nested)); },
             [&] { return set.model.AddTyped(name, type, nested); });
    }

    void AddDeclared()
    {
        Set& set = Any(m_sets);
        const std::string name = Name();
        Both([&] { return set.real->AddProperty(name.c_str()); }, [&] { return set.model.AddDeclared(name); });
    }

    void SetValue()
    {
        Set& set = Any(m_sets);
        const std::string name = Name();
        const auto property = set.model.held.find(name);
        ValueModel value = AnyValue();
        // A value of another type is what would be drawn mostly; half of the time it fits.
        for (int i = 0; i < 20 && !m_isBad && property != set.model.held.end(); ++i) {
            value = property->second.value.index() == value.index() ? value : AnyValue();
        }
        const bool isDerived = m_choices.Below(4) == 0;
        Both([&] { return set.real->SetProperty(name.c_str(), *MakeValue(value, isDerived)); },
             [&] { return set.model.Set(name, value); });
    }

    void QueryName()
    {
        const Set& set = Any(m_sets);
        const ZrvProperties& real = *set.real;
        const std::string text = Name();
        const KELUnicodeString name(text.c_str());
        const auto property = set.model.held.find(text);
        const bool isHeld = property != set.model.held.end();
        const ValueModel held = isHeld ? property->second.value : std::monostate();
        const auto reported = [&](const char* iFile) {
            return text.empty() ? SetModel::NameIsThere(iFile) : Nothing();
        };
        Expect(real.HasProperty(name), isHeld ? 1 : 0, "HasProperty");
        Expect<int>(real.GetAvailability(name), set.model.Availability(text), "availability",
                    reported("ZrvProperties_data"));
        Expect(Text(real.GetPropertyType(name)), TypeOf(held), "type", reported("ZrvProperties_data"));
        const ZrvPropertyValueBase* const value = real.GetProperty(name);
        Expect(value != nullptr, isHeld, "GetProperty", reported("ZrvProperties"));
        Expect(Describe(value ? ReadValue(*value) : std::monostate()), Describe(held), "value");
        Expect(real.GetPropertyParameters(name) == nullptr, true, "parameters",
               isHeld || text.empty() ? reported("ZrvProperties") : Pointer("ppProperty", "ZrvProperties_data"));
    }

    template <class List>
    void ListNames()
    {
        const Set& set = Any(m_sets);
        const int size = Do([&] {
            List names;
            return set.real->GetListProperties(names);
        });
        Expect(size, static_cast<int>(set.model.held.size()), "count of names");
    }

    void QueryPrototype()
    {
        const Set& set = Any(m_sets);
        ZrvConstPropertiesPrototype* const other = IsBad() ? Any(m_prototypes)->real : nullptr;
        ZrvConstPropertiesPrototype* prototype = other;
        ExpectOutcome(set.real->GetPrototype(prototype),
                      other ? Outcome::Error(Condition("!ioPrototype", "ZrvProperties")) : Outcome());
        if (other) {
            Expect(prototype, other, "the out-parameter of a refusal");
        } else {
            ExpectPrototype(prototype, set.model.prototype);
        }
    }

    void NewPrototype()
    {
        PrototypeRef& prototype = Any(m_prototypes);
        PrototypeRef made = MakePrototype();
        prototype->real->Release();
        prototype = std::move(made);
    }

    void Declare()
    {
        PrototypeModel& prototype = *Any(m_prototypes);
        const std::string name = Name();
        const PrototypeRef& nested = Nested(prototype.age);
        const auto type = static_cast<ZrvPropertyType>(static_cast<int>(m_choices.Below(12)) - 1);
        const bool isNamed = m_choices.Below(2) == 0;
        const std::string typeName = isNamed ? TypeName() : Text(ZrvPropertyTypeConv::GetAsUnicode(type));
        Both(
            [&] {
                return isNamed ? prototype.real->AddProperty(name.c_str(), typeName.c_str(), RealOf(nested))
                               : prototype.real->AddProperty(name.c_str(), type, RealOf(nested));
            },
            [&] { return prototype.Declare(name, typeName, nested); });
    }

    void Undeclare()
    {
        PrototypeModel& prototype = *Any(m_prototypes);
        const std::string name = Name();
        Both([&] { return prototype.real->RemoveProperty(name.c_str()); },
             [&] { return prototype.declared.erase(name) != 0 ? Outcome() : Outcome::Error(); });
    }

    void QueryDeclaration()
    {
        const PrototypeModel& prototype = *Any(m_prototypes);
        const std::string text = Name();
        const KELUnicodeString name(text.c_str());
        const auto found = prototype.declared.find(text);
        const bool isDeclared = found != prototype.declared.end();
        const PrototypeModel::Declaration declaration = isDeclared ? found->second : PrototypeModel::Declaration();
        const ZrvPrototypeImpl& real = *prototype.real;
        ExpectOutcome(real.HasProperty(name), isDeclared ? Outcome() : Outcome::Error());
        Expect(Text(real.GetPropertyType(name)), declaration.type, "declared type name");
        Expect<std::size_t>(real.GetPropertyAsType(name), DefaultValue(declaration.type).index(), "declared type");
        ExpectPrototype(real.GetPropertyPrototype(name), declaration.nested);
        ZrvConstPropertiesPrototype* const before = prototype.real;
        ZrvConstPropertiesPrototype* nested = before;
        ExpectOutcome(prototype.real->GetPropertyPrototype(name, nested), isDeclared ? Outcome() : Outcome::Error());
        if (isDeclared) {
            ExpectPrototype(nested, declaration.nested);
        } else {
            Expect(nested, before, "the out-parameter of an undeclared name");
        }
    }

    void NewValue()
    {
        Value& value = Any(m_values);
        ValueModel model = AnyValue();
        const bool isDerived = m_choices.Below(4) == 0;
        value.real = Do([&] { return MakeValue(model, isDerived); });
        value.model = std::move(model);
    }

    void UseValues()
    {
        Value& value = Any(m_values);
        const Value& other = Any(m_values);
        const bool isTyped = !TypeOf(value.model).empty();
        const bool fits = isTyped && value.model.index() == other.model.index();
        Expect(value.real->IsPurelyIdenticalTo(*other.real), isTyped && value.model == other.model, "identity");
        const auto refused =
            isTyped ? Nothing() : Message("Property value wihtout type cannot be set.", "ZrvPropertyValueBase");
        Both([&] { return value.real->SetValueFromProperty(*other.real); },
             [&] { return fits ? Outcome() : Outcome::Error(refused); });
        value.model = fits ? other.model : value.model;
        Expect(Describe(ReadValue(*value.real)), Describe(value.model), "value after assignment");
        auto copy = Do([&] { return std::unique_ptr<ZrvPropertyValueBase>(value.real->Duplicate()); });
        Expect(copy != nullptr, isTyped, "Duplicate");
        if (copy) {
            Expect(Describe(ReadValue(*copy)), Describe(value.model), "duplicate");
            value.real = std::move(copy);
        }
    }

    // Lists that share their elements with each other, with values or with a constant, or have lent one.
    void UseFloats()
    {
        static constinit KELRawCollfloat::Constant<3> s_constant;
        Floats& floats = Any(m_floats);
        const float number = static_cast<float>(m_choices.Below(9));
        const std::size_t position = m_choices.Below(floats.model.size() + 1);
        switch (m_choices.Below(6)) {
        case 0:
            floats = {KELRawCollfloat(s_constant), std::vector<float>(3)};
            break;
        case 1:
            Do([&] { return floats.real.Append(number), true; });
            floats.model.push_back(number);
            break;
        case 2:
            Do([&] { return floats.real.Size(static_cast<int>(2 * position % 64), number), true; });
            floats.model.resize(2 * position % 64, number);
            break;
        case 3:
            if (position > 0) {
                Do([&] { return floats.real[static_cast<int>(position)] = number, true; });
                floats.model[position - 1] = number;
            }
            break;
        case 4:
            floats = Do([&, &other = Any(m_floats)] { return other; });
            break;
        default:
            Value& value = Any(m_values);
            value.real = Do([&] { return std::make_unique<ZrvPropertyValue<KELRawCollfloat>>(floats.real); });
            value.model = floats.model;
        }
    }

    void UseMap()
    {
        const std::string text = IsBad() ? Name() : "key" + std::to_string(m_choices.Below(200));
        const KELUnicodeString name(text.c_str());
        const int held = static_cast<int>(m_mapModel.count(text));
        const int* const located = m_map.Locate(name);
        Expect(located ? *located : -1, held == 1 ? m_mapModel[text] : -1, "Locate");
        Expect(m_map.Contains(name), held, "Contains");
        if (m_choices.Below(3000) == 0) {
            m_map.RemoveAll();
            m_mapModel.clear();
        } else if (m_choices.Below(4) == 0) {
            Expect(Do([&] { return m_map.Remove(name); }), held, "Remove");
            m_mapModel.erase(text);
        } else {
            Expect(Do([&] { return m_map.Insert(name, m_steps); }), 1 - held, "Insert");
            m_mapModel[text] = m_steps;
        }
        Expect(m_map.Size(), static_cast<int>(m_mapModel.size()), "Size");
    }

    void UseCode()
    {
        const std::string text = Name().substr(0, 9);
        const auto code = static_cast<ZrvRC::ErrorCode>(static_cast<KELUINT32>(m_choices.Below(4)) - 1U);
        std::string& trace = m_codeModel.trace;
        const std::string merged = trace + (trace.empty() || text.empty() ? "" : "\n") + text;
        if (trace.size() > 200) {
            m_code = Do([&] { return ZrvRC(code, text.c_str()); });
            m_codeModel = {code, text, {}};
        } else if (m_choices.Below(2) == 0) {
            Both([&] { return m_code.AddTrace(text.c_str()); }, [&] { return trace += text, m_codeModel; });
        } else {
            Both([&] { return m_code.Add(ZrvRC(code, text.c_str())); },
                 [&] {
                     return m_codeModel = {code, merged, {}};
                 });
        }
        std::string lines = text + trace;
        for (std::size_t at = lines.find('\n'); at != lines.npos; at = lines.find('\n', at + 1 + text.size())) {
            lines.insert(at + 1, text);
        }
        KELUnicodeString prefix(text.c_str());
        Expect(Text(Do([&] { return ZrvRC::InsertLinesBegin(m_code.GetTrace(), prefix); })), lines, "InsertLinesBegin");
        ExpectOutcome(m_code.Add(m_code), m_codeModel);
    }

    // The recorder's own memory does not fail.
    static void Record(const KELCheckFailure& iFailure)
    {
        const OwnMemory::Pause pause;
        s_record(iFailure);
    }
    static inline KELCheckFailureHandler s_record = nullptr;

    Choices& m_choices;
    Memory m_memory = Memory::Behaves;
    CheckRecorder m_recorder;
    const char* m_operation = "";
    int m_steps = 0;
    Counts m_counts;
    bool m_isBad = false;
    int m_age = 0; // of the next prototype

    const PrototypeRef m_none;
    CountedObject m_objects[3];
    PrototypeRef m_prototypes[4]; // each with the creator's reference
    Set m_sets[4];
    Value m_values[5];
    Floats m_floats[3];
    KELSYPHashMap<KELUnicodeString, int> m_map;
    std::map<std::string, int> m_mapModel;
    ZrvRC m_code;
    Outcome m_codeModel;
};

void RandomUse::Step()
{
    struct Operation {
        const char* name;
        void (RandomUse::*run)();
    };
#define ZRV_RUN(name)                                                                                                  \
    Operation                                                                                                          \
    {                                                                                                                  \
#name, &RandomUse::name                                                                                        \
    }
    static constexpr Operation kChange[] = {ZRV_RUN(AddTyped), ZRV_RUN(AddDeclared), ZRV_RUN(Declare),
                                            ZRV_RUN(SetValue)};
    static constexpr Operation kOther[] = {ZRV_RUN(NewSet),
                                           ZRV_RUN(CopySet),
                                           ZRV_RUN(AssignSet),
                                           ZRV_RUN(SetFrom),
                                           ZRV_RUN(QueryName),
                                           ZRV_RUN(QueryPrototype),
                                           ZRV_RUN(NewPrototype),
                                           ZRV_RUN(Undeclare),
                                           ZRV_RUN(QueryDeclaration),
                                           ZRV_RUN(NewValue),
                                           ZRV_RUN(UseValues),
                                           ZRV_RUN(UseFloats),
                                           ZRV_RUN(UseFloats),
                                           ZRV_RUN(UseMap),
                                           ZRV_RUN(UseCode),
                                           ZRV_RUN(ListNames<KELListValKELUnicodeString>),
                                           ZRV_RUN(ListNames<KELSysTSListOfUnicodeString>)};
#undef ZRV_RUN
    const Operation& operation = m_choices.Below(3) == 0 ? Any(kChange) : Any(kOther);
    ++m_steps;
    m_operation = operation.name;
    m_isBad = m_choices.Below(2) == 0;
    (this->*operation.run)();
    CheckPrototypes();
    if (m_steps % 64 == 0) {
        CheckState();
    }
}

// The names that a set lists, which are the same in both kinds of lists.
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
    std::map<std::string, std::string> held;
    std::map<std::string, std::string> expected;
    for (const std::string& name : Order(iSet)) {
        held[name] = Describe(ReadValue(*iSet.real->GetProperty(name.c_str())));
    }
    for (const auto& [name, property] : iSet.model.held) {
        expected[name] = Describe(property.value);
    }
    Expect(held, expected, "what a set holds");
}

// After a copy that was stopped half-way: what the set holds now is old, copied or a default. The model follows.
void RandomUse::TakeOver(Set& ioSet, const Set& iSource, bool iIsAssigned)
{
    const SetModel old = iIsAssigned ? SetModel{iSource.model.prototype, {}} : std::move(ioSet.model);
    ioSet.model = {old.prototype, old.held};
    for (const std::string& name : Order(ioSet)) {
        const ValueModel value = ReadValue(*ioSet.real->GetProperty(name.c_str()));
        const auto isIn = [&](const SetModel& iModel) {
            const auto found = iModel.held.find(name);
            return found != iModel.held.end() && Describe(found->second.value) == Describe(value);
        };
        Expect(isIn(old) || isIn(iSource.model) || Describe(value) == Describe(DefaultValue(TypeOf(value))), true,
               "what a copy leaves half-way");
        const auto held = ioSet.model.held.find(name);
        if (held != ioSet.model.held.end()) {
            held->second.value = value;
        } else {
            ioSet.model.held[name] = {value, old.prototype ? old.prototype->declared.at(name).nested : m_none};
        }
    }
}

void RandomUse::CheckPrototypes()
{
    for (const PrototypeRef& prototype : m_prototypes) {
        Expect(static_cast<long>(CountOf(*prototype->real)), prototype.use_count(), "references on a prototype");
    }
    Expect(WatchedPrototype::s_alive, PrototypeModel::s_alive, "prototypes alive");
}

void RandomUse::CheckState()
{
    CheckPrototypes();
    std::map<KELSysTSBaseUnknown*, KELUINT32> counts;
    const auto count = [&counts](const ValueModel& iValue) {
        if (const auto* const held = std::get_if<KELSysTSBaseUnknown*>(&iValue)) {
            ++counts[*held];
        }
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
    for (const Floats& floats : m_floats) {
        Expect(Describe(ToModel(floats.real)), Describe(floats.model), "list");
    }
    ExpectOutcome(m_code, m_codeModel);
    for (CountedObject& object : m_objects) {
        Expect(CountOf(object), 1 + counts[&object], "references on an object");
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
    std::map<std::string, int> met;
    for (KELSYPHashMapIteratorHolder<KELUnicodeString, int> it(m_map); !it.IsDone(); it.Next()) {
        met[Text(*it.CurrentItem()->pKey)] = *it.CurrentItem()->pValue;
    }
    Expect(met, m_mapModel, "what a walk over the map meets");
}

} // namespace

Counts UseAtRandom(Choices& ioChoices, Memory iMemory)
{
    auto use = std::make_unique<RandomUse>(ioChoices, iMemory);
    while (ioChoices.AreLeft()) {
        use->Step();
    }
    use->CheckState();
    const Counts counts = use->Counted();
    OwnMemory::FailAt(iMemory == Memory::Behaves ? 0 : 1, true);
    use.reset();
    if (OwnMemory::Behave() != 0 || WatchedPrototype::s_alive != 0) {
        throw std::logic_error("destroying everything allocates or leaves prototypes alive");
    }
    return counts;
}
