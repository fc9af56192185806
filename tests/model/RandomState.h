#ifndef RandomState_H
#define RandomState_H

#include "CheckRecorder.h"
#include "CountedObject.h"
#include "Model.h"
#include "OwnMemory.h"
#include "RandomUse.h"

#include <iterator>
#include <memory>
#include <new>
#include <stdexcept>
#include <vector>

/// Real things, each with its model, and what random operations on them have in common.
class RandomState {
public:
    RandomState(const Choices& iChoices, Trouble iTrouble, Maker* ioOther)
        : m_choices(iChoices), m_trouble(iTrouble), m_makers{&m_own, ioOther ? ioOther : &m_own}
    {
        for (Set& set : m_sets) {
            set.real = std::make_unique<ZrvProperties>();
        }
        for (PrototypeModel*& prototype : m_prototypes) {
            prototype = MakePrototype();
        }
        Host::s_does = [this](bool iHasHappened) { CallBack(iHasHappened); };
        m_reports.further = [this] { CallBack(true); };
    }
    ~RandomState()
    {
        m_depth = kDeepest;
        for (PrototypeModel* const prototype : m_prototypes) {
            prototype->real->Release();
        }
    }

    /// One operation with all that it leads to.
    void Step()
    {
        ++m_steps;
        IsOneOf(3) ? UsePrototypes() : UseSets();
        while (!m_made.empty()) {
            CountedObject* const made = m_made.back();
            m_made.pop_back();
            made->Release();
        }
        for (Set& set : m_sets) {
            set.model = m_isUnknown ? Read(*set.real) : set.model;
        }
        m_isUnknown = false;
        Check();
    }

    /// Compares everything with the models.
    void Check()
    {
        std::map<KELSysTSBaseUnknown*, KELUINT32> objects;
        for (CountedObject* const made : m_made) {
            ++objects[made];
        }
        for (const Set& set : m_sets) {
            const SetModel read = Read(*set.real);
            Expect(read.held == set.model.held && read.prototype == set.model.prototype, "a set");
            for (const auto& [name, value] : set.model.held) {
                auto* const* const object = std::get_if<zrvPT_BaseUnknownPtr>(&value);
                ++objects[object ? *object : nullptr];
            }
        }
        objects.erase(nullptr);
        Expect(objects.size() == m_objectsAlive, "objects alive");
        for (const auto& [object, references] : objects) {
            Expect(CountOf(*object) == references, "references on an object");
        }
    }

    long troubles = 0;

protected:
    struct Set {
        std::unique_ptr<ZrvProperties> real;
        SetModel model;
    };

    virtual void UsePrototypes() = 0;
    virtual void UseSets() = 0; ///< Call-backs do so, too.

    bool IsOneOf(std::size_t iCount) { return m_choices(iCount) == 0; }
    bool IsBad() { return IsOneOf(4); }
    template <class All>
    auto& Any(All& ioAll)
    {
        return ioAll[m_choices(std::size(ioAll))];
    }
    static ZrvPrototypeImpl* RealOf(const PrototypeModel* iModel) { return iModel ? iModel->real : nullptr; }
    Maker& AnyMaker() { return *m_makers[m_steps % 2]; }

    /// An object that goes with its last holder. The maker's reference is given back at the end of the step.
    KELSysTSBaseUnknown* MakeObject()
    {
        ++m_objectsAlive;
        m_made.push_back(new CountedObject([this] { --m_objectsAlive, CallBack(true); }));
        return m_made.back();
    }

    void Expect(bool iIsSame, const std::string& iWhat)
    {
        if (!iIsSame) {
            throw std::logic_error("step " + std::to_string(m_steps) + ": " + iWhat);
        }
    }

    /// A set as it really is.
    SetModel Read(const ZrvProperties& iSet)
    {
        SetModel read;
        ZrvVisitProperties(iSet,
                           [&read](const Name& iName, const auto& iValue) { read.held[iName] = ReadValue(iValue); });
        if (const auto prototype = ZrvPropertyAccess::PrototypeOf(iSet)) {
            read.prototype = &m_known.at(prototype.Get());
        }
        return read;
    }

    /// Does something with the real things, at last. Before that, when memory is to fail, each allocation of it fails
    /// once: it goes through all the same, or the failure leaves it as an exception and everything is still as the
    /// models say, but for the set that is the destination of a copy.
    template <class Operation>
    auto Do(const Operation& iOperation, Set* ioDestination = nullptr)
    {
        const bool failsOn = m_trouble == Trouble::MemoryFailsForGood;
        for (long allocation = 1;; ++allocation) {
            OwnMemory::FailAt(failsOn || m_trouble == Trouble::MemoryFailsOnce ? allocation : 0, failsOn);
            try {
                auto result = iOperation();
                troubles += OwnMemory::Behave();
                return result;
            } catch (const std::bad_alloc&) {
                troubles += OwnMemory::Behave();
                m_reports.Take();
                if (ioDestination) {
                    ioDestination->model = Read(*ioDestination->real);
                }
                Check();
            }
        }
    }

    /// The same, compared in words with its model, which follows when it has happened.
    template <class Operation>
    void Both(const Operation& iOperation, std::function<std::string()> iModel, Set* ioDestination = nullptr)
    {
        Running running{std::move(iModel), ioDestination != nullptr, std::exchange(m_running, &running), ""};
        std::string answer;
        try {
            answer = InWords(Do(iOperation, ioDestination));
            Happen();
        } catch (const HostFailure&) { // nothing has happened
        }
        m_running = running.outer;
        answer += m_reports.Take();
        troubles += m_trouble == Trouble::Refusals && answer.find('[') != std::string::npos ? 1 : 0;
        Expect(m_isUnknown || answer == running.answer, answer + " instead of " + running.answer);
    }

    /// Every other one is of the host's class; for the rest the library has short cuts.
    PrototypeModel* MakePrototype()
    {
        ++m_age;
        ZrvPrototypeImpl* const real = Do([this] { return AnyMaker().MakePrototype(m_age % 2 == 0); });
        return &(m_known[real] = {real, m_age, {}}); // in the place of one that is gone
    }

    const Choices& m_choices;
    const Trouble m_trouble;
    CheckRecorder m_reports;
    PrototypeModel* m_prototypes[4]; // each with the creator's reference

private:
    static constexpr int kDeepest = 2;

    /// What a call-back throws.
    struct HostFailure {};

    /// An operation between its call and its return.
    struct Running {
        std::function<std::string()> model; // empty when it has happened
        bool isCopy;
        Running* outer;
        std::string answer;
    };

    void Happen()
    {
        if (m_running && m_running->model) {
            m_running->answer = std::exchange(m_running->model, nullptr)();
        }
    }

    /// Prototypes and values are asked before something happens; objects and prototypes go, and the handler is called,
    /// afterwards.
    void CallBack(bool iHasHappened)
    {
        const bool isAsked = !iHasHappened && m_running && m_running->model;
        if (m_trouble != Trouble::CallBacks || m_depth == kDeepest || iHasHappened == isAsked || !IsOneOf(3)) {
            return;
        }
        if (iHasHappened) {
            Happen();
        }
        m_isUnknown = m_isUnknown || (isAsked && m_running->isCopy); // how far has it come?
        if (isAsked && IsOneOf(8)) {
            m_running->model = nullptr;
            throw HostFailure();
        }
        const std::string reports = m_reports.Take(); // of the operation that goes on afterwards
        ++troubles;
        ++m_depth;
        UseSets();
        --m_depth;
        m_reports.reports = reports;
    }

    OwnMaker m_own;
    Maker* const m_makers[2];
    int m_steps = 0, m_age = 0;   // the age is the newest prototype's
    Running* m_running = nullptr; // the innermost
    int m_depth = 0;              // of call-backs
    bool m_isUnknown = false;     // what the sets hold; it is read from them in the end
    std::map<ZrvConstPropertiesPrototype*, PrototypeModel> m_known;
    std::vector<CountedObject*> m_made;
    std::size_t m_objectsAlive = 0;

protected:
    Set m_sets[4]; // go first
};

#endif
