#include "CountedObject.h"
#include "KELReference.h"
#include "KELSYPHashMap.h"
#include "ValueModel.h"
#include "ZrvProperties.h"
#include "ZrvProperties_data.h"
#include "ZrvPrototypeImpl.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace {

/// What the program's memory does. An allocation counts, and may fail, only between `FailAt` and `Behave`.
struct Memory {
    void FailAt(long iAllocation, bool iAndEveryLaterOne)
    {
        countdown = iAllocation;
        failsOn = iAndEveryLaterOne;
    }
    long Behave() { return std::exchange(countdown, 0); }

    long live = 0;
    long countdown = 0; // to the failure; 0 when none is to come
    bool failsOn = false;
    long failures = 0;
} g_memory;

} // namespace

void* operator new(std::size_t iSize)
{
    if (g_memory.countdown > 0 && --g_memory.countdown == 0) {
        g_memory.countdown = g_memory.failsOn ? 1 : 0;
        ++g_memory.failures;
        throw std::bad_alloc();
    }
    void* const memory = std::malloc(iSize);
    if (!memory) {
        throw std::bad_alloc();
    }
    ++g_memory.live;
    return memory;
}

void operator delete(void* iMemory) noexcept
{
    g_memory.live -= iMemory ? 1 : 0;
    std::free(iMemory);
}

void operator delete(void* iMemory, std::size_t) noexcept
{
    ::operator delete(iMemory);
}

namespace {

CountedObject g_object;
unsigned char g_byte;

/// What a state is described by: what there is, and what it holds.
using State = std::map<std::string, std::string>;

/// Everything that the script works on.
struct World {
    State Describe();
    void DescribeSet(State& ioState, const std::string& iName, const std::unique_ptr<ZrvProperties>& iSet);
    void DescribePrototype(State& ioState, const std::string& iName, const ZrvPrototypeImpl* iPrototype);

    KELReference<ZrvPrototypeImpl> inner;
    KELReference<ZrvPrototypeImpl> outer;
    std::unique_ptr<ZrvProperties> bound;
    std::unique_ptr<ZrvProperties> free;
    std::unique_ptr<ZrvProperties> target; // a copy into it may stop half-way
    std::unique_ptr<ZrvPropertyValueBase> value;
    KELRawCollfloat floats;
    KELUnicodeString text{"text"};
    ZrvRC code;
    KELSYPHashMap<KELUnicodeString, int> map;
};

void World::DescribeSet(State& ioState, const std::string& iName, const std::unique_ptr<ZrvProperties>& iSet)
{
    if (!iSet) {
        return;
    }
    ZrvConstPropertiesPrototype* prototype = nullptr;
    iSet->GetPrototype(prototype);
    const auto holder = KELReference<ZrvConstPropertiesPrototype>::Adopt(prototype);
    ioState[iName] = !prototype ? "free" : outer.Get() == prototype ? "outer" : "unknown";
    KELListValKELUnicodeString names;
    iSet->GetListProperties(names);
    for (int position = 1; position <= names.Size(); ++position) {
        const std::unique_ptr<ZrvProperties> parameters(iSet->GetPropertyParameters(names[position]));
        ioState[iName + "/" + Text(names[position])] = ::Describe(ReadValue(*iSet->GetProperty(names[position])));
        DescribeSet(ioState, iName + "/" + Text(names[position]) + " parameters", parameters);
    }
}

void World::DescribePrototype(State& ioState, const std::string& iName, const ZrvPrototypeImpl* iPrototype)
{
    KELListValKELUnicodeString names;
    iPrototype->GetListProperties(names);
    for (int position = 1; position <= names.Size(); ++position) {
        const auto nested =
            KELReference<ZrvConstPropertiesPrototype>::Adopt(iPrototype->GetPropertyPrototype(names[position]));
        ioState[iName + "/" + Text(names[position])] =
            Text(iPrototype->GetPropertyType(names[position])) + (nested ? " nested" : "");
    }
    ioState[iName + " count"] = std::to_string(CountOf(const_cast<ZrvPrototypeImpl&>(*iPrototype)));
}

State World::Describe()
{
    State state;
    if (inner) {
        DescribePrototype(state, "inner", inner.Get());
    }
    if (outer) {
        DescribePrototype(state, "outer", outer.Get());
    }
    DescribeSet(state, "bound", bound);
    DescribeSet(state, "free", free);
    DescribeSet(state, "target", target);
    state["object count"] = std::to_string(CountOf(g_object));
    state["value"] = value ? ::Describe(ReadValue(*value)) : "";
    state["floats"] = ::Describe(ToModel(floats));
    state["text"] = Text(text);
    state["code"] = std::to_string(code.GetRC()) + Text(code.GetTrace());
    for (KELSYPHashMapIteratorHolder<KELUnicodeString, int> it(map); !it.IsDone(); it.Next()) {
        state["map/" + Text(*it.CurrentItem()->pKey)] = std::to_string(*it.CurrentItem()->pValue);
    }
    return state;
}

/// One operation; true when it did what it should.
struct Step {
    std::string name;
    std::function<bool(World&)> run;
    bool mayStopHalfway = false;
};

const ValueModel g_samples[] = {&g_byte,
                                std::string("a text"),
                                KELBoolean{0},
                                KELINT32{-4},
                                KELUINT32{5},
                                1.5F,
                                2.5,
                                std::vector<float>{1.0F, 2.0F, 3.0F, 4.0F},
                                static_cast<KELSysTSBaseUnknown*>(&g_object)};

// A step that is one expression, which is its name too.
#define ZRV_STEP(...)                                                                                                  \
    {                                                                                                                  \
#__VA_ARGS__, [](World & w) -> bool { return (__VA_ARGS__); }                                                  \
    }
#define ZRV_STEP_THAT_MAY_STOP(...)                                                                                    \
    {                                                                                                                  \
#__VA_ARGS__, [](World & w) -> bool { return (__VA_ARGS__); }, true                                            \
    }

using Floats = ZrvPropertyValue<KELRawCollfloat>;
using PrototypeHolder = KELReference<ZrvPrototypeImpl>;

std::vector<Step> SetUpSteps()
{
    return {
        ZRV_STEP(w.inner = PrototypeHolder::Adopt(new ZrvPrototypeImpl), true),
        ZRV_STEP(w.outer = PrototypeHolder::Adopt(new ZrvPrototypeImpl), true),
        ZRV_STEP(w.inner->AddProperty("x", "float", nullptr).IsValid()),
        ZRV_STEP(w.outer->AddProperty("extra", "KELINT32", nullptr).IsValid()),
        ZRV_STEP(w.outer->AddProperty("extra", "KELINT32", w.inner.Get()).IsValid()),
        ZRV_STEP(w.outer->AddProperty("extra", "KELINT32", w.inner.Get()).IsError()),
        ZRV_STEP(w.outer->RemoveProperty("extra").IsValid()),
        ZRV_STEP(w.bound = std::make_unique<ZrvProperties>(w.outer.Get()), true),
        ZRV_STEP(w.free = std::make_unique<ZrvProperties>(), true),
    };
}

// The nested set of parameters of a property, which no operation fills.
std::unique_ptr<ZrvProperties>& ParametersOf(const ZrvProperties& iSet, const char* iName)
{
    return (*iSet.m_PropertiesData->m_propertyMap.Locate(iName))->m_pParameters;
}

template <class List>
int CountNames(const ZrvProperties& iSet)
{
    List list;
    return iSet.GetListProperties(list);
}

std::vector<Step> SetSteps()
{
    return {
        ZRV_STEP(w.free->AddProperty("free float", "double", nullptr).IsValid()),
        ZRV_STEP(w.free->AddProperty("new", "int", w.inner.Get()).IsError()),
        ZRV_STEP(w.bound->SetProperty("my float", ZrvPropertyValue<double>(1)).IsError()),
        ZRV_STEP(ParametersOf(*w.free, "free float") = std::make_unique<ZrvProperties>(*w.bound), true),
        ZRV_STEP(std::unique_ptr<ZrvProperties>(w.free->GetPropertyParameters("free float")) != nullptr),
        ZRV_STEP(w.free->HasProperty("free float") && w.free->GetProperty("free float")),
        ZRV_STEP(w.free->GetPropertyType("free float") == "float"),
        ZRV_STEP(CountNames<KELListValKELUnicodeString>(*w.free) == 9),
        ZRV_STEP(CountNames<KELSysTSListOfUnicodeString>(*w.free) == 9),
        ZRV_STEP(w.target = std::make_unique<ZrvProperties>(*w.free), true),
        ZRV_STEP_THAT_MAY_STOP(*w.target = *w.bound, true),
        ZRV_STEP_THAT_MAY_STOP(*w.target = *w.free, true),
        ZRV_STEP_THAT_MAY_STOP(w.target->SetFromProperties(*w.bound).IsValid()),
        ZRV_STEP(w.bound->SetFromProperties(*w.free).IsError()),
    };
}

std::vector<Step> PlatformSteps()
{
    return {
        ZRV_STEP(w.floats.Append(1.0F), true),
        ZRV_STEP(w.floats.Size(100, 2.0F), true),
        ZRV_STEP(w.value = std::make_unique<Floats>(w.floats), true),
        ZRV_STEP(w.floats.Append(3.0F), true), // the value shows the same elements
        ZRV_STEP(w.floats[1] = 4.0F, true),    // lent, so that copies show it no more
        ZRV_STEP(w.value = std::make_unique<Floats>(w.floats), true),
        ZRV_STEP(w.value->SetValueFromProperty(Floats(w.floats)).IsValid()),
        ZRV_STEP(w.value->IsPurelyIdenticalTo(Floats(w.floats))),
        ZRV_STEP(w.text.Append(" and more\nof it"), true),
        ZRV_STEP(w.text.Insert(2, "inside"), true),
        ZRV_STEP(w.code.AddTrace(w.text).IsValid()),
        ZRV_STEP(w.code.Add(ZrvRC(ZrvRC::zrvEC_Error, "added")).IsError()),
        ZRV_STEP(w.code = ZrvRC(0x80004005L), true),
        ZRV_STEP(w.text = ZrvRC::InsertLinesBegin(w.text, w.text), true),
        ZRV_STEP(w.map.Insert("key 7", 8) == 0),
        ZRV_STEP(w.map.Remove("key 3") == 1),
        ZRV_STEP(w.map.Contains("key 9") == 1 && *w.map.Locate("key 7") == 8),
    };
}

// The steps that are the same for each of the nine types.
std::vector<Step> StepsOfType(const ValueModel& iSample)
{
    const auto type = static_cast<ZrvPropertyType>(iSample.index());
    const std::string typeName = TypeOf(iSample);
    const KELUnicodeString name(("my " + typeName).c_str());
    const KELUnicodeString freeName(("free " + typeName).c_str());
    return {
        {"declare",
         [=](World& w) { return w.outer->AddProperty(name, type, type % 2 ? nullptr : w.inner.Get()).IsValid(); }},
        {"add declared", [=](World& w) { return w.bound->AddProperty(name).IsValid(); }},
        {"set", [=, &iSample](World& w) { return w.bound->SetProperty(name, *MakeValue(iSample)).IsValid(); }},
        {"add", [=](World& w) { return w.free->AddProperty(freeName, typeName.c_str(), w.inner.Get()).IsValid(); }},
        {"make value", [&iSample](World& w) { return (w.value = MakeValue(iSample)) != nullptr; }},
        {"duplicate", [](World& w) { return w.value.reset(w.value->Duplicate()), w.value != nullptr; }},
    };
}

std::vector<Step> Script()
{
    std::vector<Step> script = SetUpSteps();
    for (const ValueModel& sample : g_samples) {
        const std::vector<Step> steps = StepsOfType(sample);
        script.insert(script.end(), steps.begin(), steps.end());
    }
    for (int i = 0; i < 40; ++i) {
        script.push_back({"map", [i](World& w) { return w.map.Insert(("key " + std::to_string(i)).c_str(), i) == 1; }});
    }
    for (const std::vector<Step>& steps : {SetSteps(), PlatformSteps()}) {
        script.insert(script.end(), steps.begin(), steps.end());
    }
    return script;
}

class FailingMemory : public ::testing::TestWithParam<bool> {
protected:
    FailingMemory() : m_previous(KELSetCheckFailureHandler([](const KELCheckFailure&) {})) {}
    ~FailingMemory() override
    {
        g_memory.Behave();
        KELSetCheckFailureHandler(m_previous);
    }

    // Runs the script with the given allocation failing; false when it ran through because there are not so many.
    bool RunWithFailure(long iAllocation);
    void ExpectIntact(std::size_t iStep, const State& iState);
    static void Destroy(std::unique_ptr<World> ioWorld);

    const std::vector<Step> m_script = Script();
    std::vector<State> m_before; // of each step, and of the end

private:
    KELCheckFailureHandler m_previous;
};

void FailingMemory::Destroy(std::unique_ptr<World> ioWorld)
{
    const long failures = g_memory.failures;
    g_memory.FailAt(1, true);
    ioWorld.reset();
    g_memory.Behave();
    EXPECT_EQ(g_memory.failures, failures) << "destroying allocates";
}

void FailingMemory::ExpectIntact(std::size_t iStep, const State& iState)
{
    const State& before = m_before[iStep];
    const State& after = m_before[iStep + 1];
    if (!m_script[iStep].mayStopHalfway) {
        EXPECT_EQ(iState, before);
        return;
    }
    for (const auto& [what, held] : iState) {
        const auto isIn = [&what = what, &held = held](const State& iOther) {
            const auto found = iOther.find(what);
            return found != iOther.end() && found->second == held;
        };
        const bool isCount = what.find(" count") != what.npos;
        const bool isAdded = held == Describe(DefaultValue(held.substr(0, held.find(':'))));
        EXPECT_TRUE(isIn(before) || (what.rfind("target", 0) == 0 && (isIn(after) || isAdded)) || isCount) << what;
    }
}

bool FailingMemory::RunWithFailure(long iAllocation)
{
    const bool isRecorded = m_before.size() > m_script.size();
    const long live = g_memory.live;
    const long failures = g_memory.failures;
    auto world = std::make_unique<World>();
    long left = iAllocation;
    for (std::size_t step = 0; step < m_script.size() && g_memory.failures == failures; ++step) {
        SCOPED_TRACE("allocation " + std::to_string(iAllocation) + ", step " + m_script[step].name);
        g_memory.FailAt(left, GetParam());
        try {
            EXPECT_TRUE(m_script[step].run(*world));
            left = g_memory.Behave();
            EXPECT_EQ(g_memory.failures, failures) << "the failure did not leave the operation";
        } catch (const std::bad_alloc&) {
            g_memory.Behave();
            ExpectIntact(step, world->Describe());
            // What is left can be copied, and the same step can be done now.
            for (const std::unique_ptr<ZrvProperties>& set :
                 {std::cref(world->bound), std::cref(world->free), std::cref(world->target)}) {
                if (set) {
                    ZrvProperties copy(*set);
                    copy = *set;
                }
            }
            EXPECT_TRUE(m_script[step].run(*world));
            EXPECT_EQ(world->Describe(), m_before[step + 1]);
        }
        if (!isRecorded) {
            m_before.push_back(world->Describe());
        }
    }
    Destroy(std::move(world));
    EXPECT_TRUE(!isRecorded || g_memory.live == live) << "leaked at allocation " << iAllocation;
    EXPECT_EQ(CountOf(g_object), 1U);
    return g_memory.failures != failures;
}

TEST_P(FailingMemory, LeavesEverythingIntact)
{
    m_before.reserve(m_script.size() + 1);
    m_before.push_back(World().Describe());
    ASSERT_FALSE(RunWithFailure(1000000)) << "the clean run, which shows the states between the steps";
    ASSERT_EQ(m_before.size(), m_script.size() + 1);
    long allocation = 1;
    while (RunWithFailure(allocation) && !HasFailure()) {
        ++allocation;
    }
    EXPECT_GT(allocation, 150) << "as many failures were seen";
    RecordProperty("failures", static_cast<int>(allocation - 1));
}

INSTANTIATE_TEST_SUITE_P(OnceOrFromThenOn, FailingMemory, ::testing::Bool());

} // namespace
