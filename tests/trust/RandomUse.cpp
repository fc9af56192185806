#include "RandomState.h"

#include <algorithm>
#include <limits>

namespace {

class RandomUse : public RandomState {
public:
    RandomUse(Choices& ioChoices, Memory iMemory, Maker* ioOther) : RandomState(ioChoices, ioOther)
    {
        m_memory = iMemory;
    }

    /// One operation; the whole state is compared once in a while.
    void Step();

private:
    void NewSet()
    {
        Set& set = Any(m_sets);
        const PrototypeRef& prototype = m_choices.Below(3) == 0 ? m_none : Any(m_prototypes);
        const bool isDerived = m_choices.Below(2) == 0;
        set.real.reset(Do([&] { return AnyMaker().MakeSet(RealOf(prototype), isDerived); }));
        set.model = {prototype, {}};
    }

    void CopySet()
    {
        const Set& source = Any(m_sets);
        Set copy = {Do([&] { return std::make_unique<ZrvProperties>(*source.real); }), source.model};
        CheckSet(copy);
        Any(m_sets) = std::move(copy);
    }

    void CopyInto()
    {
        Set& set = Any(m_sets);
        const Set& source = Any(m_sets);
        const std::vector<std::string> order = Order(source);
        const bool isAssigned = m_choices.Below(2) == 0;
        const auto copy = [&] {
            return isAssigned ? (*set.real = *source.real, ZrvRC()) : set.real->SetFromProperties(*source.real);
        };
        const ZrvRC rc = Do(copy, [&] { TakeOver(set, source, isAssigned); });
        ExpectOutcome(rc, isAssigned ? set.model.Assign(source.model, order) : set.model.Copy(source.model, order));
        CheckSet(set);
    }

    void AddProperty()
    {
        Set& set = Any(m_sets);
        const std::string name = Name();
        const std::string type = TypeName();
        const PrototypeRef& nested = Nested(std::numeric_limits<int>::max());
        if (set.model.prototype ? !IsBad() : IsBad()) { // each kind of set has its way to add
            Both([&] { return set.real->AddProperty(name.c_str()); }, [&] { return set.model.AddDeclared(name); });
        } else {
            Both([&] { return set.real->AddProperty(name.c_str(), type.c_str(), RealOf(nested)); },
                 [&] { return set.model.AddTyped(name, type, nested); });
        }
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
        const std::string noName = text.empty() ? g_noName : "";
        const std::string noNameInData = text.empty() ? g_noNameInData : "";
        const std::string notFound = isHeld ? "" : " [pointer ppProperty in ZrvProperties_data]";
        Expect(Do([&] { return real.HasProperty(name); }), isHeld ? 1 : 0, "HasProperty");
        Expect<int>(Do([&] { return real.GetAvailability(name); }), set.model.Availability(text), "availability",
                    noNameInData);
        Expect(Text(Do([&] { return real.GetPropertyType(name); })), TypeOf(held), "type", noNameInData);
        const ZrvPropertyValueBase* const value = Do([&] { return real.GetProperty(name); });
        Expect(value != nullptr, isHeld, "GetProperty", noName);
        Expect(Describe(value ? ReadValue(*value) : std::monostate()), Describe(held), "value");
        Expect(Do([&] { return real.GetPropertyParameters(name) == nullptr; }), true, "parameters",
               text.empty() ? noName : notFound);
    }

    void ListNames()
    {
        const Set& set = Any(m_sets);
        const auto count = [&set](auto iList) { return set.real->GetListProperties(iList); };
        const int wide = Do([&count] { return count(KELListValKELUnicodeString()); });
        const int narrow = Do([&count] { return count(KELSysTSListOfUnicodeString()); });
        Expect(wide == narrow && wide == static_cast<int>(set.model.held.size()), true, "counts of names");
        const ZrvPrototypeImpl& prototype = *Any(m_prototypes)->real;
        const auto list = [&prototype](KELListValKELUnicodeString iNames) {
            return prototype.GetListProperties(iNames);
        };
        ExpectOutcome(Do([&list] { return list(KELListValKELUnicodeString()); }), {});
        const auto walk = [this] {
            int met = 0;
            for (KELSYPHashMapIteratorHolder<KELUnicodeString, KELUnicodeString> it(m_map); !it.IsDone(); it.Next()) {
                met += it.CurrentItem() ? 1 : 0;
            }
            return met;
        };
        Expect(Do(walk), m_map.Size(), "entries met");
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
        const std::size_t type = m_choices.Below(std::size(g_typeNames));
        const bool isNamed = m_choices.Below(2) == 0;
        const std::string typeName = isNamed ? TypeName() : g_typeNames[type];
        if (m_choices.Below(4) == 0) {
            Both([&] { return prototype.real->RemoveProperty(name.c_str()); },
                 [&] { return prototype.declared.erase(name) != 0 ? Outcome() : Outcome::Error(); });
            return;
        }
        Both(
            [&] {
                return isNamed ? prototype.real->AddProperty(name.c_str(), typeName.c_str(), RealOf(nested))
                               : prototype.real->AddProperty(name.c_str(), static_cast<ZrvPropertyType>(type),
                                                             RealOf(nested));
            },
            [&] { return prototype.Declare(name, typeName, nested); });
    }

    void QueryDeclaration()
    {
        const PrototypeModel& prototype = *Any(m_prototypes);
        const std::string text = Name();
        const KELUnicodeString name(text.c_str());
        const auto found = prototype.declared.find(text);
        const bool isDeclared = found != prototype.declared.end();
        const PrototypeModel::Declaration declaration = isDeclared ? found->second : PrototypeModel::Declaration();
        const Outcome outcome = isDeclared ? Outcome() : Outcome::Error();
        const ZrvPrototypeImpl& real = *prototype.real;
        ExpectOutcome(Do([&] { return real.HasProperty(name); }), outcome);
        Expect(Text(Do([&] { return real.GetPropertyType(name); })), declaration.type, "declared type name");
        Expect(static_cast<std::size_t>(Do([&] { return real.GetPropertyAsType(name); })),
               DefaultValue(declaration.type).index(), "type");
        ExpectPrototype(Do([&] { return real.GetPropertyPrototype(name); }), declaration.nested);
        ZrvConstPropertiesPrototype* nested = prototype.real; // is left there by a refusal
        ExpectOutcome(Do([&] { return prototype.real->GetPropertyPrototype(name, nested); }), outcome);
        ExpectPrototype(isDeclared ? nested : nullptr, declaration.nested);
        Expect(isDeclared || nested == prototype.real, true, "nested prototype of what is not declared");
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
        Expect(Do([&] { return value.real->IsPurelyIdenticalTo(*other.real); }), isTyped && value.model == other.model,
               "identity");
        const Outcome refused = Outcome::Error(isTyped ? "" : g_noTypeToSet);
        Both([&] { return value.real->SetValueFromProperty(*other.real); }, [&] { return fits ? Outcome() : refused; });
        value.model = fits ? other.model : value.model;
        auto copy = Do([&] { return std::unique_ptr<ZrvPropertyValueBase>(value.real->Duplicate()); });
        Expect(copy != nullptr, isTyped, "Duplicate");
        Expect(Describe(ReadValue(copy ? *copy : *value.real)), Describe(value.model), "duplicate");
        if (copy && m_isBad) {
            value.real = std::move(copy);
        }
    }

    void UseFloats()
    {
        Floats& floats = Any(m_floats);
        const std::size_t position = m_choices.Below(floats.model.size() + 1);
        ChangeFloats(floats, position);
        const Floats& other = m_floats[position % 3];
        const int order = Compare(floats.model, other.model);
        Expect(KELRawCollfloat::Compare(floats.real, other.real), order, "Compare");
        Expect(ZrvPropertyValue_LstFloatComparator(floats.real, other.real), order == 0, "comparator of lists");
        const int outside = m_isBad ? static_cast<int>(floats.model.size()) + 1 : -static_cast<int>(position);
        Do([&] { return floats.real[outside] = 5.0F; });
        Expect(std::as_const(floats.real)[outside] + floats.real[outside], 0.0F, "an element outside",
               g_noPosition + g_noPosition + g_noPosition);
    }

    // Lists share their elements with each other or with values, or have lent one.
    void ChangeFloats(Floats& ioFloats, std::size_t iPosition)
    {
        static constexpr float kNumbers[] = {0.0F, -0.0F, 1.0F, -1.0F, 2.0F, std::numeric_limits<float>::quiet_NaN()};
        const float number = Any(kNumbers);
        const std::size_t size = m_isBad ? 0 : 2 * iPosition % 64;
        KELRawCollfloat& real = ioFloats.real;
        std::vector<float>& model = ioFloats.model;
        switch (m_choices.Below(6)) {
        case 0:
            ioFloats = {KELRawCollfloat(), {}};
            break;
        case 1:
            Do([&] { return real.Append(number), true; });
            model.push_back(number);
            break;
        case 2:
            Do([&] { return real.Size(m_isBad ? -1 : static_cast<int>(size), number), true; });
            model.resize(size, number);
            break;
        case 3:
            if (iPosition > 0) {
                const KELRawCollfloat copy = Do([&] {
                    float& lent = real[static_cast<int>(iPosition)];
                    KELRawCollfloat taken = real;
                    lent = number; // the copy has elements of its own
                    return taken;
                });
                Expect(Describe(ToModel(copy)), Describe(model), "copy of a list that has lent an element");
                model[iPosition - 1] = number;
            }
            break;
        case 4:
            ioFloats = Do([&other = Any(m_floats)] { return other; });
            break;
        default:
            Value& value = Any(m_values);
            value.real = Do([&] { return std::make_unique<ZrvPropertyValue<KELRawCollfloat>>(real); });
            value.model = model;
        }
    }

    static int Compare(const std::vector<float>& iLeft, const std::vector<float>& iRight)
    {
        const auto [left, right] = std::mismatch(iLeft.begin(), iLeft.end(), iRight.begin(), iRight.end());
        const bool isSame = left == iLeft.end() && right == iRight.end();
        return isSame ? 0 : right != iRight.end() && (left == iLeft.end() || *left < *right) ? -1 : 1;
    }

    void UseMap()
    {
        const std::string text = IsBad() ? Name() : "key" + std::to_string(m_choices.Below(200));
        const KELUnicodeString name(text.c_str());
        const int held = static_cast<int>(m_mapModel.count(text));
        Expect(m_map.Locate(name) != nullptr && m_map.Contains(name) == 1, held == 1, "Locate");
        if (m_choices.Below(3000) == 0) {
            m_map.RemoveAll();
            m_mapModel.clear();
        } else if (m_choices.Below(4) == 0) {
            Expect(Do([&] { return m_map.Remove(name); }), held, "Remove");
            m_mapModel.erase(text);
        } else {
            const std::string value = std::to_string(m_steps);
            Expect(Do([&] { return m_map.Insert(name, value.c_str()); }), 1 - held, "Insert");
            m_mapModel[text] = value;
            Expect(Text(*m_map.Locate(name)), value, "inserted");
        }
        Expect(m_map.Size(), static_cast<int>(m_mapModel.size()), "Size");
    }

    void UseText()
    {
        const std::string text = Name().substr(0, 9);
        const bool isInFront = m_choices.Below(2) == 0;
        if (m_textModel.size() > 200) {
            m_text = KELUnicodeString();
            m_textModel.clear();
        }
        const KELUnicodeString wide(text.c_str());
        Expect(ZrvPropertyValue_StringComparator(wide, m_text), text == m_textModel, "comparator of texts");
        Do([&] { return isInFront ? m_text.Insert(0, text.c_str()) : m_text.Append(text.c_str()); });
        m_textModel = isInFront ? text + m_textModel : m_textModel + text;
    }

    void UseCode()
    {
        const std::string text = Name().substr(0, 9);
        const auto code = static_cast<ZrvRC::ErrorCode>(static_cast<KELUINT32>(m_choices.Below(4)) - 1U);
        std::string& trace = m_codeModel.trace;
        const std::string merged = trace + (trace.empty() || text.empty() ? "" : "\n") + text;
        if (trace.size() > 200) {
            m_code = Do([&] { return ZrvRC(code, text.c_str()); });
            m_codeModel = {code, text, ""};
        } else if (m_choices.Below(2) == 0) {
            Both([&] { return m_code.AddTrace(text.c_str()); }, [&] { return trace += text, m_codeModel; });
        } else {
            const Outcome added = {code, merged, ""};
            Both([&] { return m_code.Add(ZrvRC(code, text.c_str())); }, [&] { return m_codeModel = added; });
        }
        ExpectOutcome(m_code.Add(m_code), m_codeModel);
        ExpectOutcome(Do([] { return ZrvRC(-1L); }), Outcome::Error("", "Unknown error hresult."));
        ZrvRC other(code, "other");
        const bool isSame = m_codeModel.code == code;
        const bool isValid = code == ZrvRC::zrvEC_OK || code == ZrvRC::zrvEC_NothingDone;
        Expect((m_code == other) == isSame && m_code.operator!=(other) != isSame, true, "comparison of codes");
        Expect(other.IsValid() == isValid && other.IsError() != isValid && !other != isValid, true, "IsValid");
        CheckLines(trace, text);
    }

    void CheckLines(const std::string& iText, std::string iPrefix)
    {
        std::string lines = iPrefix;
        for (const char character : iText) {
            lines += character == '\n' ? character + iPrefix : std::string(1, character);
        }
        const KELUnicodeString text(iText.c_str());
        KELUnicodeString prefix(iPrefix.c_str());
        Expect(Text(Do([&] { return ZrvRC::InsertLinesBegin(text, prefix); })), lines, "InsertLinesBegin");
        Expect(Text(Do([&] { return ZrvRC::InsertLinesBegin(text, iPrefix.data()); })), lines, "InsertLinesBegin");
        Expect(Text(prefix), iPrefix, "prefix");
    }
};

void RandomUse::Step()
{
    // What changes much comes more often.
    static constexpr void (RandomUse::*kOperations[])() = {
        &RandomUse::NewSet,    &RandomUse::CopySet,          &RandomUse::CopyInto,  &RandomUse::AddProperty,
        &RandomUse::SetValue,  &RandomUse::QueryName,        &RandomUse::ListNames, &RandomUse::NewPrototype,
        &RandomUse::Declare,   &RandomUse::QueryDeclaration, &RandomUse::NewValue,  &RandomUse::UseValues,
        &RandomUse::UseFloats, &RandomUse::UseMap,           &RandomUse::UseText,   &RandomUse::UseCode,
    };
    static constexpr std::size_t kWeighted[] = {0, 1, 2, 2,  3,  3,  3,  4,  4,  5,  6,  7,  8,
                                                8, 8, 9, 10, 11, 11, 12, 12, 13, 13, 13, 14, 15};
    ++m_steps;
    m_operation = Any(kWeighted);
    m_isBad = m_choices.Below(2) == 0;
    const auto run = kOperations[m_operation];
    (this->*run)();
    CheckPrototypes();
    if (m_steps % 64 == 0) {
        Check();
    }
}

} // namespace

Counts UseAtRandom(Choices& ioChoices, Memory iMemory, Maker* ioOther)
{
    auto use = std::make_unique<RandomUse>(ioChoices, iMemory, ioOther);
    while (ioChoices.AreLeft()) {
        use->Step();
    }
    use->Check();
    const Counts counts = use->Counted();
    OwnMemory::FailAt(iMemory == Memory::Behaves ? 0 : 1, true);
    use.reset();
    if (OwnMemory::Behave() != 0 || PrototypeModel::s_realAlive != 0) {
        throw std::logic_error("destroying everything allocates or leaves prototypes alive");
    }
    return counts;
}
