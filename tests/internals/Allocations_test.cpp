#include "OwnMemory.h"
#include "Zorvel.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// What an operation adds to a count of the memory's.
template <class Count, class Operation>
long Added(const Count& iCount, const Operation& iOperation)
{
    const long before = iCount;
    iOperation();
    return iCount - before;
}

KELUnicodeString Numbered(int iNumber)
{
    return KELUnicodeString(("a name that is longer than a string holds inside, " + std::to_string(iNumber)).c_str());
}

TEST(Allocations, NoneForAPropertyThatIsThere)
{
    for (int type = 0; type < zrvPT_Undefined; ++type) {
        const KELUnicodeString name(std::string(1000, 'n').c_str());
        ZrvProperties set;
        set.AddProperty(name, ZrvPropertyTypeConv::GetAsUnicode(static_cast<ZrvPropertyType>(type)), nullptr);
        set.AddProperty("a short name", "KELUnicodeString", nullptr);
        const ZrvProperties copy(set);
        const ZrvPropertyValueBase* const value = copy.GetProperty(name);
        const auto use = [&] {
            EXPECT_TRUE(set.SetProperty(name, *value).IsValid() && set.HasProperty(name));
            EXPECT_TRUE(set.GetProperty(name)->IsPurelyIdenticalTo(*value));
            EXPECT_TRUE(set.GetAvailability(name) && set.GetPropertyType(name) != "");
            EXPECT_TRUE(set.SetProperty("a short name", ZrvPropertyValue<KELUnicodeString>("25 bytes lie in a string."))
                            .IsValid());
        };
        EXPECT_EQ(Added(OwnMemory::s_allocatedBytes, use), 0) << type;
    }
}

TEST(Allocations, AreGivenBackWhenASetOrPrototypeIsEmptied)
{
    ZrvPrototypeImpl prototype;
    ZrvProperties set;
    const auto fillAndEmpty = [&] {
        for (int i = 0; i < 5000; ++i) {
            set.AddProperty(Numbered(i), "float", nullptr);
            prototype.AddProperty(Numbered(i), zrvPT_Float, nullptr);
        }
        set = ZrvProperties();
        for (int i = 0; i < 5000; ++i) {
            prototype.RemoveProperty(Numbered(i));
        }
    };
    EXPECT_LT(Added(OwnMemory::s_liveBytes, fillAndEmpty), 10000);
}

// What callers pay in bytes. Who makes it more has a reason, and says so here.
TEST(Allocations, CostWhatTheyDid)
{
    // How many; bytes for a set of them, a copy, an assignment, a list of their names, two traces, a list of floats.
    const std::vector<long> rows[] = {{1, 2360, 752, 520, 32, 0, 36},
                                      {8, 2360, 1592, 1360, 256, 0, 172},
                                      {17, 4096, 3264, 3032, 544, 71, 596},
                                      {33, 7608, 5688, 5456, 1056, 376, 1128},
                                      {1000, 170112, 144248, 144016, 32000, 18585, 16568},
                                      {2000, 342400, 288248, 288016, 64000, 49088, 32972}};
    for (const std::vector<long>& row : rows) {
        ZrvProperties set, target;
        KELListValKELUnicodeString names;
        ZrvRC rc, merged;
        KELRawCollfloat floats(0);
        const auto bytes = [](const auto& iOperation) { return Added(OwnMemory::s_allocatedBytes, iOperation); };
        const auto each = [&](const auto& iOperation) {
            for (long i = 0; i < row[0]; ++i) {
                iOperation(KELUnicodeString(std::to_string(i).c_str()));
            }
        };
        const auto add = [&](const auto& iName) { set.AddProperty(iName, "float", nullptr); };
        const auto trace = [&](const auto& iName) { rc.AddTrace(iName), merged.Add(ZrvRC(ZrvRC::zrvEC_Error, iName)); };
        const auto append = [&](const auto&) { floats.Append(0.0F), floats.Size(floats.Size() + 1, 0.0F); };
        const std::vector<long> costs = {row[0],
                                         bytes([&] { each(add); }),
                                         bytes([&] { const ZrvProperties copy(set); }),
                                         bytes([&] { target = set; }),
                                         bytes([&] { set.GetListProperties(names); }),
                                         bytes([&] { each(trace); }),
                                         bytes([&] { each(append); })};
        EXPECT_EQ(costs, row);
    }
}

} // namespace
