#ifndef RandomState_H
#define RandomState_H

#include "CheckRecorder.h"
#include "CountedObject.h"
#include "KELSYPHashMap.h"
#include "Maker.h"
#include "Model.h"
#include "OwnMemory.h"
#include "RandomUse.h"

#include <iterator>
#include <new>
#include <stdexcept>
#include <utility>

/// Real things, each with its model, and what random operations on them have in common.
class RandomState {
public:
    /// \param ioOther makes every other thing, if not null
    RandomState(Choices& ioChoices, Maker* ioOther);
    RandomState(const RandomState&) = delete;
    RandomState& operator=(const RandomState&) = delete;
    ~RandomState();

    /// Compares everything with the models.
    void Check();

    const Counts& Counted() const { return m_counts; }

protected:
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

    /// Arguments of operations.
    /// @{
    bool IsBad() { return m_isBad && m_choices.Below(2) == 0; }
    template <class All>
    auto& Any(All& ioAll)
    {
        return ioAll[m_choices.Below(std::size(ioAll))];
    }
    const std::string& Name();
    std::string TypeName();
    ValueModel AnyValue();
    /// Only an older prototype is nested into another, so that no two keep each other alive.
    const PrototypeRef& Nested(int iOlderThan);
    static ZrvPrototypeImpl* RealOf(const PrototypeRef& iModel) { return iModel ? iModel->real : nullptr; }
    /// @}

    /// Each throws at a difference, one in the reports since the last comparison included.
    /// @{
    [[noreturn]] void Fail(const std::string& iWhat) const;
    template <class T>
    void Expect(const T& iReal, const T& iModel, const char* iWhat, const std::string& iReports = "")
    {
        const std::string reports = m_reports.Take();
        if (!(iReal == iModel) || reports != iReports) {
            Fail(iWhat + reports);
        }
    }
    void ExpectOutcome(ZrvRC iReal, const Outcome& iModel);
    void ExpectPrototype(ZrvConstPropertiesPrototype* iReal, const PrototypeRef& iModel); ///< Releases the reference.
    void CheckSet(const Set& iSet);
    void CheckPrototypes();
    /// @}

    /// Does something with the real things, at last. Before that, when memory is to fail, each allocation of it fails
    /// once: the failure leaves it as an exception, and everything is still as the models say or as iRecover then makes
    /// them.
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
                m_reports.Take();
                iRecover();
                Check();
            }
        }
    }
    template <class Operation>
    auto Do(const Operation& iOperation)
    {
        return Do(iOperation, [] {});
    }

    /// The same with its model, which follows when it has happened.
    template <class Operation, class Model>
    void Both(const Operation& iOperation, const Model& iModel)
    {
        const ZrvRC rc = Do(iOperation);
        ExpectOutcome(rc, iModel());
    }

    Maker& AnyMaker() { return *m_makers[m_steps % 2]; }
    std::unique_ptr<ZrvPropertyValueBase> MakeValue(const ValueModel& iValue, bool iIsDerived = false)
    {
        return std::unique_ptr<ZrvPropertyValueBase>(AnyMaker().MakeValue(iValue, iIsDerived));
    }
    PrototypeRef MakePrototype();

    using Held = std::map<std::string, std::string>;
    static Held HeldBy(const SetModel& iSet);
    Held HeldBy(const Set& iSet);

    /// The names that a set lists, which are the same in both kinds of lists.
    std::vector<std::string> Order(const Set& iSet);

    /// After a copy that was stopped half-way: the first names are copied, the next one may be there with its default,
    /// and the rest is old. The model follows.
    void TakeOver(Set& ioSet, const Set& iSource, bool iIsAssigned);

    CheckRecorder m_reports;
    Choices& m_choices;
    OwnMaker m_own;
    Maker* const m_makers[2];
    Memory m_memory = Memory::Behaves;
    Counts m_counts;
    int m_steps = 0;
    std::size_t m_operation = 0;
    bool m_isBad = false;
    int m_age = 0; // of the newest prototype

    const PrototypeRef m_none;
    CountedObject m_objects[3];
    PrototypeRef m_prototypes[4]; // each with the creator's reference
    Set m_sets[4];
    Value m_values[5];
    Floats m_floats[3];
    KELSYPHashMap<KELUnicodeString, KELUnicodeString> m_map;
    std::map<std::string, std::string> m_mapModel;
    KELUnicodeString m_text;
    std::string m_textModel;
    ZrvRC m_code;
    Outcome m_codeModel;
};

#endif
