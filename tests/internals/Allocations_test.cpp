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

KELUnicodeString Numbered(const char* iText, int iNumber)
{
    return KELUnicodeString((iText + std::to_string(iNumber)).c_str());
}

/// A set, or a prototype, of many long names.
template <class Filled>
void Fill(Filled& ioFilled, int iCount)
{
    for (int i = 0; i < iCount; ++i) {
        ioFilled.AddProperty(Numbered("a name that is longer than a string holds inside, ", i), "float", nullptr);
    }
}

TEST(Allocations, NoneForAPropertyThatIsThere)
{
    ZrvPrototypeImpl prototype;
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
            EXPECT_TRUE(set.GetAvailability(name) == ZrvProperties::zrvPA_Instantiated &&
                        set.GetPropertyType(name) != "");
            EXPECT_TRUE(set.SetProperty("a short name", ZrvPropertyValue<KELUnicodeString>("25 bytes lie in a string."))
                            .IsValid());
        };
        EXPECT_EQ(Added(OwnMemory::s_allocations, use), 0) << type;
    }
}

TEST(Allocations, FewForASetOfSixteen)
{
    ZrvPrototypeImpl prototype;
    for (int i = 0; i < 16; ++i) {
        prototype.AddProperty(Numbered("property", i), static_cast<ZrvPropertyType>(i % 9), nullptr);
    }
    ZrvProperties set(&prototype);
    const auto fill = [&set] {
        for (int i = 0; i < 16; ++i) {
            set.AddProperty(Numbered("property", i));
        }
    };
    EXPECT_LE(Added(OwnMemory::s_allocations, fill), 10);
    EXPECT_LE(Added(OwnMemory::s_allocations, [&set] { const ZrvProperties copy(set); }), 5 + 2); // two float lists
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
        Fill(set, 5000);
        Fill(prototype, 5000);
        set = ZrvProperties();
        for (int i = 0; i < 5000; ++i) {
            prototype.RemoveProperty(Numbered("a name that is longer than a string holds inside, ", i));
        }
    };
    EXPECT_LT(Added(OwnMemory::s_liveBytes, fillAndEmpty), 10000);
}

} // namespace
