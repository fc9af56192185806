#include "OwnMemory.h"
#include "Zorvel.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

template <class Operation>
long BytesOf(const Operation& iOperation)
{
    const long before = OwnMemory::s_allocatedBytes;
    iOperation();
    return OwnMemory::s_allocatedBytes - before;
}

TEST(Allocations, NoneForAPropertyThatIsThere)
{
    for (int type = 0; type < zrvPT_Undefined; ++type) {
        const KELUnicodeString name(std::string(1000, 'n').c_str());
        ZrvProperties set;
        set.AddProperty(name, ZrvPropertyTypeConv::GetAsUnicode(static_cast<ZrvPropertyType>(type)), nullptr);
        set.AddProperty("short", "KELUnicodeString", nullptr);
        const ZrvProperties copy(set);
        const ZrvPropertyValueBase* const value = copy.GetProperty(name);
        const auto use = [&] {
            EXPECT_TRUE(set.SetProperty(name, *value).IsValid() && set.HasProperty(name) && set.GetAvailability(name));
            EXPECT_TRUE(set.GetProperty(name)->IsPurelyIdenticalTo(*value) && set.GetPropertyType(name) != "");
            EXPECT_TRUE(
                set.SetProperty("short", ZrvPropertyValue<KELUnicodeString>("25 bytes lie in a string.")).IsValid());
        };
        EXPECT_EQ(BytesOf(use), 0) << type;
    }
}

// What callers pay in bytes. Who makes it more has a reason, and says so here.
TEST(Allocations, CostWhatTheyDidAndAreGivenBack)
{
    // How many; bytes for a set and a prototype of them, a listed copy, an assignment, two traces, a list of floats.
    const std::vector<long> rows[] = {{0, 0, 1360, 232, 0, 0, 0},
                                      {1, 2360, 1360, 784, 520, 0, 44},
                                      {7, 2360, 1360, 1696, 1240, 0, 228},
                                      {14, 3328, 2336, 3568, 2888, 71, 440},
                                      {15, 3328, 3104, 3640, 2928, 71, 440},
                                      {50, 9056, 9152, 9056, 7224, 591, 1632},
                                      {2000, 342400, 275880, 352248, 288016, 49088, 49348}};
    for (const std::vector<long>& row : rows) {
        ZrvPrototypeImpl prototype;
        ZrvProperties set, target;
        ZrvRC rc, merged;
        KELRawCollfloat floats(3);
        KELListValKELUnicodeString names;
        const auto each = [&](const auto& iOperation) {
            for (long i = 0; i < row[0]; ++i) {
                iOperation(KELUnicodeString(std::to_string(i).c_str()));
            }
        };
        const auto add = [&](const auto& iName) { set.AddProperty(iName, "float", nullptr); };
        const auto declare = [&](const auto& iName) { prototype.AddProperty(iName, zrvPT_Float, nullptr); };
        const auto trace = [&](const auto& iName) { rc.AddTrace(iName), merged.Add(ZrvRC(ZrvRC::zrvEC_Error, iName)); };
        const auto append = [&](const auto&) { floats.Append(0.0F), floats.Size(floats.Size() + 1, 0.0F); };
        const auto declareAll = [&] { declare("kept"), declare("more"), each(declare); };
        const long live = OwnMemory::s_liveBytes;
        const std::vector<long> costs = {row[0],
                                         BytesOf([&] { each(add); }),
                                         BytesOf(declareAll),
                                         BytesOf([&] { ZrvProperties(set).GetListProperties(names); }),
                                         BytesOf([&] { target = set; }),
                                         BytesOf([&] { each(trace); }),
                                         BytesOf([&] { each(append), KELRawCollfloat(floats); })};
        EXPECT_EQ(costs, row);
        const auto renew = [&](const auto&) { prototype.RemoveProperty("more"), declare("more"); };
        EXPECT_EQ(BytesOf([&] { each(renew); }), 0);
        set = target = ZrvProperties();
        rc = merged = ZrvRC(), names = {};
        floats = KELRawCollfloat(0);
        each([&](const auto& iName) { prototype.RemoveProperty(iName); });
        prototype.RemoveProperty("kept"), prototype.RemoveProperty("more");
        EXPECT_LE(OwnMemory::s_liveBytes, live + 1100);
        EXPECT_EQ(BytesOf(declareAll), row[2] - (row[0] < 15 ? 384 : 0)) << "the table keeps its first room";
    }
}

} // namespace
