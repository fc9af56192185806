#include "OwnMemory.h"
#include "Zorvel.h"

#include <gtest/gtest.h>

#include <string>

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

TEST(Allocations, GrowInProportion)
{
    ZrvRC rc;
    ZrvRC merged;
    KELRawCollfloat list;
    const KELUnicodeString text(std::string(31, 't').c_str());
    const auto grow = [&] {
        for (int i = 1; i <= 20000; ++i) {
            rc.AddTrace(text);
            merged.Add(ZrvRC(ZrvRC::zrvEC_Error, text));
            list.Size(i, 1.0F);
        }
    };
    EXPECT_LT(Added(OwnMemory::s_allocatedBytes, grow), 4 * 20000 * (31 + 32 + 4));
    EXPECT_TRUE(rc.GetTrace().GetLengthInChar() == 31 * 20000 && merged.GetTrace().GetLengthInChar() == 32 * 20000 - 1);
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

} // namespace
