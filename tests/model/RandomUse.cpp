#include "RandomState.h"

#include <algorithm>

namespace {

// The first two have the same hash.
const Name g_goodNames[] = {"rate73436", "rate73804", "rate", "title", "a", "A", "\xC3\xA9", "e\xCC\x81"};
const Name g_badNames[] = {"", "", "undeclared", "\xC3", "\xFF\xFE", "width ", std::string(3000, 'x').c_str()};
const Name g_badTypes[] = {"", "", "i", "int", "Float", "float ", "KELINT", "\xC0\x80"};

unsigned char g_bytes[3];

class RandomUse final : public RandomState {
public:
    using RandomState::RandomState;

private:
    ValueModel AnyValue(std::size_t iType)
    {
        const int number = static_cast<int>(m_choices(3));
        KELRawCollfloat list(number - 1); // room for none, or for too few
        list.Size(number, 0.5F);
        KELSysTSBaseUnknown* const object = iType == zrvPT_BaseUnknownPtr && number > 0 ? MakeObject() : nullptr;
        return Chosen(static_cast<std::ptrdiff_t>(iType), &g_bytes[number], Any(g_badNames), KELBoolean(number), number,
                      KELUINT32(number), float(number), double(number), list, object, std::monostate());
    }

    void NewSet()
    {
        PrototypeModel* const prototype = IsOneOf(3) ? nullptr : Any(m_prototypes);
        const bool isHosts = IsOneOf(2);
        const Set& source = Any(m_sets);
        const bool isCopy = IsOneOf(2);
        const auto make = [&] {
            return std::unique_ptr<ZrvProperties>(isCopy ? new ZrvProperties(*source.real)
                                                         : AnyMaker().MakeSet(RealOf(prototype), isHosts));
        };
        Set made{Do(make), isCopy ? source.model : SetModel{prototype, {}}};
        std::swap(Any(m_sets), made); // what goes with the old one may use the new one
    }

    void Copy(Set& ioSet)
    {
        const Set none{std::make_unique<ZrvProperties>(), {}};
        const Set& source = IsOneOf(6) ? none : Any(m_sets);
        ZrvProperties& real = *ioSet.real;
        SetModel& model = ioSet.model;
        KELListValKELUnicodeString names;
        source.real->GetListProperties(names);
        const auto assign = [&] {
            model = &source == &ioSet ? model : SetModel{source.model.prototype, {}};
            const std::string answer = &source == &ioSet ? "ok" : model.Copy(source.model, names);
            return "ok" + answer.substr(std::min(answer.find(" ["), answer.size())); // no result, only reports
        };
        const auto copy = [&] { return &source == &ioSet ? "nothing done" : model.Copy(source.model, names); };
        const bool adds = !std::all_of(begin(names), end(names), [&](const Name& iName) { return model.Has(iName); });
        Set* const mayBeHalf = adds || m_trouble == Trouble::CallBacks ? &ioSet : nullptr;
        IsOneOf(2) ? Both([&] { return real = *source.real, ZrvRC(); }, assign, &ioSet)
                   : Both([&] { return real.SetFromProperties(*source.real); }, copy, mayBeHalf);
    }

    void Add(Set& ioSet, const Name& iName)
    {
        ZrvProperties& real = *ioSet.real;
        SetModel& model = ioSet.model;
        const SetModel before = model;
        const Name type = IsBad() ? Any(g_badTypes) : IsOneOf(3) ? g_typeNames[zrvPT_BaseUnknownPtr] : Any(g_typeNames);
        ZrvPrototypeImpl* const nested = IsOneOf(2) ? Any(m_prototypes)->real : nullptr;
        const auto addDeclared = [&] {
            const std::string refused = SetModel(before).AddDeclared(iName); // before the host has been asked more
            const bool isRebound = model.prototype != before.prototype;
            return refused.find('[') != std::string::npos ? refused : isRebound ? "error" : model.AddDeclared(iName);
        };
        const auto addTyped = [&] { return model.AddTyped(iName, type); };
        const bool isByName = before.prototype ? !IsBad() : IsBad(); // each kind of set has its way
        isByName ? Both([&] { return real.AddProperty(iName); }, addDeclared)
                 : Both([&] { return real.AddProperty(iName, type, nested); }, addTyped);
    }

    void SetValue(Set& ioSet, const Name& iName)
    {
        const bool fits = !IsBad() && ioSet.model.Has(iName);
        const ValueModel value = AnyValue(fits ? ioSet.model.Held(iName).index() : m_choices(zrvPT_Undefined + 1));
        const bool isHosts = IsOneOf(4);
        const auto make = [&] { return std::unique_ptr<ZrvPropertyValueBase>(AnyMaker().MakeValue(value, isHosts)); };
        Both([&] { return ioSet.real->SetProperty(iName, *make()); }, [&] { return ioSet.model.Set(iName, value); });
    }

    void Query(Set& ioSet, const Name& iName)
    {
        const ZrvProperties& real = *ioSet.real;
        const SetModel& model = ioSet.model;
        const std::string inFront = iName == "" ? Nothing("iPropertyName") : "";
        const std::string inData = iName == "" ? Nothing("iPropertyName", "ZrvProperties_data") : "";
        const auto parameters = [&] { return "null" + (model.Has(iName) ? "" : Report("pointer ppProperty")); };
        const auto size = [&model] { return std::to_string(model.held.size()); };
        KELListValKELUnicodeString wide;
        KELSysTSListOfUnicodeString narrow;
        const std::string available = std::to_string(model.Availability(iName)) + inData; // before the host is asked
        Both([&] { return int{real.GetAvailability(iName)}; }, [&] { return available; });
        Both([&] { return real.HasProperty(iName); }, [&] { return std::to_string(model.Has(iName)); });
        Both([&] { return real.GetProperty(iName); }, [&] { return (model.Has(iName) ? "there" : "null") + inFront; });
        Both([&] { return real.GetPropertyType(iName); }, [&] { return InWords(TypeOf(model.Held(iName))) + inData; });
        Both([&] { return real.GetPropertyParameters(iName); },
             [&] { return iName == "" ? "null" + inFront : parameters(); });
        Both([&] { return narrow = {}, real.GetListProperties(narrow); }, size);
        Both([&] { return wide = {}, real.GetListProperties(wide); }, size);
    }

    void UseSets() override
    {
        Set& set = Any(m_sets);
        const Name name = IsBad() ? Any(g_badNames) : Any(g_goodNames);
        const std::size_t kind = m_choices(10); // what changes much comes more often
        kind < 3 ? Copy(set) : kind < 6 ? Add(set, name) : kind < 9 ? SetValue(set, name) : Query(set, name);
    }

    void Declare(PrototypeModel& ioModel, const Name& iName)
    {
        ZrvPrototypeImpl& real = *ioModel.real;
        const Name type = IsBad() ? Any(g_badTypes) : Any(g_typeNames);
        PrototypeModel* nested = Any(m_prototypes); // only an older one, so that no two keep each other alive
        nested = nested->age < ioModel.age && IsOneOf(2) ? nested : nullptr;
        const auto number = std::find(std::begin(g_typeNames), std::end(g_typeNames), type) - std::begin(g_typeNames);
        const bool hasNumber = type == TypeOf(DefaultValue(type)) && IsOneOf(2);
        const auto add = [&] {
            return hasNumber ? real.AddProperty(iName, static_cast<ZrvPropertyType>(number), RealOf(nested))
                             : real.AddProperty(iName, type, RealOf(nested));
        };
        const auto remove = [&] { return ioModel.declared.erase(iName) != 0 ? "ok" : "error"; };
        IsOneOf(4) ? Both([&] { return real.RemoveProperty(iName); }, remove)
                   : Both(add, [&] { return ioModel.Declare(iName, type, nested); });
    }

    void Query(const PrototypeModel& iModel, const Name& iName)
    {
        ZrvPrototypeImpl& real = *iModel.real;
        const auto found = iModel.declared.find(iName);
        const bool isDeclared = found != iModel.declared.end();
        const PrototypeModel::Declaration declaration =
            isDeclared ? found->second : PrototypeModel::Declaration{"", {}};
        const auto answer = [&] { return isDeclared ? "ok" : "error"; };
        const std::string type = std::to_string(DefaultValue(declaration.type).index());
        ZrvConstPropertiesPrototype* nested = &real; // is left there by a refusal
        Both([&] { return real.IsValid(); }, [] { return "ok"; });
        Both([&] { return real.HasProperty(iName); }, answer);
        Both([&] { return Name(real.GetPropertyType(iName)); }, [&] { return InWords(declaration.type); });
        Both([&] { return int{real.GetPropertyAsType(iName)}; }, [&] { return type; });
        Both([&] { return real.GetPropertyPrototype(iName, nested); }, answer);
        Expect(nested == (isDeclared ? RealOf(declaration.nested) : &real), "nested prototype");
        isDeclared&& nested ? nested->Release() : 0;
        KELListValKELUnicodeString names;
        Both([&] { return names = {}, real.GetListProperties(names); }, [] { return "ok"; });
        Expect(names.Size() == static_cast<int>(iModel.declared.size()), "number of declarations");
        for (int i = 1; i <= names.Size(); ++i) {
            Expect(iModel.declared.count(names[i]) != 0, "list of declarations");
        }
    }

    void UsePrototypes() override
    {
        PrototypeModel*& prototype = Any(m_prototypes);
        const Name name = IsBad() ? Any(g_badNames) : Any(g_goodNames);
        const std::size_t kind = m_choices(10);
        if (kind < 6) {
            Declare(*prototype, name);
        } else if (kind < 7) {
            Query(*prototype, name);
        } else if (kind < 8) {
            std::exchange(prototype, MakePrototype())->real->Release();
        } else {
            NewSet();
        }
    }
};

} // namespace

long UseAtRandom(const Choices& iChoices, long iOperations, Trouble iTrouble, Maker* ioOther)
{
    auto use = std::make_unique<RandomUse>(iChoices, iTrouble, ioOther);
    while (iOperations-- > 0) {
        use->Step();
    }
    const long troubles = use->troubles;
    OwnMemory::FailAt(iTrouble == Trouble::CallBacks ? 0 : 1, true); // nothing that goes needs memory
    use.reset();
    OwnMemory::Behave();
    return troubles;
}
