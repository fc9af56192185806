#ifndef RandomUse_H
#define RandomUse_H

#include "CountedObject.h"
#include "KELSYPHashMap.h"
#include "Model.h"
#include "ZrvProperties.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

/// Where a random use takes its decisions from.
class Choices {
public:
    virtual ~Choices() = default;

    /// A number below iCount, which is at least 1.
    virtual std::size_t Below(std::size_t iCount) = 0;
};

/// The same choices on every machine for the same seed.
class SeededChoices : public Choices {
public:
    explicit SeededChoices(std::uint64_t iSeed) : m_generator(iSeed) {}
    std::size_t Below(std::size_t iCount) override { return static_cast<std::size_t>(m_generator() % iCount); }

private:
    std::mt19937_64 m_generator;
};

/// Does one operation after the other on a few sets, prototypes, values, one map and one return code, and the same on
/// models of them. Half of the operations get bad arguments on purpose. Throws std::logic_error at the first
/// difference in a result, a report, a reference count or what is held.
class RandomUse {
public:
    explicit RandomUse(Choices& ioChoices);
    RandomUse(const RandomUse&) = delete;
    RandomUse& operator=(const RandomUse&) = delete;
    ~RandomUse();

    /// One operation; the whole state is compared once in a while.
    void Step();

    /// Compares everything with the models.
    void CheckState();

    int Steps() const { return m_steps; }
    int Refused() const { return m_refused; } ///< how many operations answered with an error or a report

private:
    using Operation = void (RandomUse::*)();
    using Map = KELSYPHashMap<KELUnicodeString, int>;

    struct Set {
        std::unique_ptr<ZrvProperties> real;
        SetModel model;
    };
    struct Value {
        std::unique_ptr<ZrvPropertyValueBase> real;
        ValueModel model;
    };
    struct Releaser {
        void operator()(KELSysTSBaseUnknown* iObject) const { iObject->Release(); }
    };
    using Object = std::unique_ptr<CountedObject, Releaser>;

    // Arguments.
    bool IsBad() { return m_isBad && m_choices.Below(2) == 0; }
    const std::string& Name();
    std::string TypeName();
    ValueModel AnyValue();
    template <class T>
    T& Any(std::vector<T>& ioAll)
    {
        return ioAll[m_choices.Below(ioAll.size())];
    }
    PrototypeRef Nested(int iOlderThan);

    // Operations.
    void NewSet();
    void CopySet();
    void AssignSet();
    void AddTyped();
    void AddDeclared();
    void SetValue();
    void SetFrom();
    void QueryName();
    void QueryPrototypeOfSet();
    void ListSet();
    void NewPrototype();
    void Declare();
    void Undeclare();
    void QueryDeclaration();
    void NewValue();
    void AssignValue();
    void CompareValues();
    void DuplicateValue();
    void UseMap();
    void WalkMap();
    void UseCode();
    void ConvertResult();

    // Comparisons.
    void Fail(const std::string& iWhat) const;
    template <class T>
    void Expect(const T& iReal, const T& iModel, const char* iWhat) const
    {
        if (!(iReal == iModel)) {
            Fail(iWhat);
        }
    }
    void ExpectOutcome(ZrvRC iReal, const Outcome& iModel);
    void ExpectPrototype(ZrvConstPropertiesPrototype* iReal, const PrototypeRef& iModel);
    std::vector<std::string> Order(const Set& iSet);
    void CheckSet(const Set& iSet);
    void CheckCounts();

    Choices& m_choices;
    CheckRecorder m_recorder;
    int m_steps = 0;
    int m_refused = 0;
    const char* m_operation = "";
    bool m_isBad = false;

    std::vector<Object> m_objects;
    std::vector<PrototypeRef> m_prototypes; // each with the creator's reference
    std::vector<Set> m_sets;
    std::vector<Value> m_values;
    Map m_map;
    std::map<std::string, int> m_mapModel;
    ZrvRC m_code;
    Outcome m_codeModel;
};

#endif
