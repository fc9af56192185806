#include "CheckRecorder.h"
#include "CountedObject.h"
#include "Zorvel.h"

#include "KELSysSimpleHashTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

// What a host, or those whose names it passes on, may do to it.
namespace {

/// Names of one hash, of two words each: the second one undoes what the first has done.
std::vector<KELUnicodeString> NamesOfOneHash(std::size_t iCount)
{
    std::vector<KELUnicodeString> names;
    for (std::uint64_t first = 0; names.size() < iCount; ++first) {
        std::uint64_t words[2] = {first, (16 * KELUtf8::kHashMultiplier ^ first) * KELUtf8::kHashMultiplier};
        words[1] ^= words[1] >> 32U ^ 0x123456789U;
        names.emplace_back(reinterpret_cast<const char*>(words), sizeof(words));
    }
    EXPECT_EQ(names.front().ComputeHashKey(), names.back().ComputeHashKey()) << "another hash needs other names";
    return names;
}

constexpr std::size_t kMany = 20000;

TEST(Hosts, NamesOfOneHashAreComparedAsSeldomAsOthersHeldAndForgotten)
{
    using Name = KELUnicodeString;
    static std::uint64_t s_comparisons = 0, s_salt = 0;
    static constexpr auto at = [](void* iName) -> const Name& { return *static_cast<Name*>(iName); };
    std::vector<Name> names = NamesOfOneHash(kMany);
    std::generate_n(names.begin(), 1000, [i = 0]() mutable { return Name(std::to_string(++i).c_str()); });
    ZrvPrototypeImpl prototype;
    ZrvProperties set(&prototype);
    KELSysSimpleHashTable table(
        kMany / 2, [](void* iName) { return at(iName).ComputeHashKey(); },
        [](void* iLeft, void* iRight) { return ++s_comparisons, at(iLeft) == at(iRight) ? 1 : 0; },
        [](void* iName, const KELHashSalt& iSalt) { return s_salt = iSalt.first, at(iName).ComputeHashKey(iSalt); });
    for (Name& name : names) {
        Name copy(name);
        EXPECT_TRUE(!table.Locate(&name) && table.InsertAndReturn(&name) == &name && table.Locate(&copy) == &name);
        ASSERT_TRUE(prototype.AddProperty(name, zrvPT_INT32, nullptr).IsValid() && set.AddProperty(name).IsValid());
    }
    EXPECT_TRUE(s_comparisons < 4 * kMany && s_salt != 0) << s_comparisons << ' ' << s_salt;
    ZrvProperties copy;
    copy = ZrvProperties(set);
    for (const Name& name : names) {
        ASSERT_TRUE(copy.HasProperty(name) && prototype.RemoveProperty(name).IsValid() && !prototype.HasProperty(name));
    }
    const KELHashSalt salt{0x0706050403020100U, 0x0F0E0D0C0B0A0908U};
    EXPECT_TRUE(salt.Hash("fifteen bytes..", 15) == 0xE725ACEEU && salt.Hash("8 bytes.", 8) == 0x9038AACDU);
}

TEST(Hosts, ASetMayTakeFromASetThatGoesWithWhatIsReplaced)
{
    struct Nest : CountedObject {
        ZrvProperties set;
    };
    const ZrvPropertyValue<KELUnicodeString> text("a text that lies in the memory of none of both");
    for (const bool isAssigned : {false, true}) {
        auto* const nest = new Nest;
        ZrvProperties set;
        ZrvPublishProperty<KELSysTSBaseUnknown*>(set, "object", nest);
        ZrvPublishProperty<KELSysTSBaseUnknown*>(nest->set, "object", nullptr);
        ZrvPublishProperty(nest->set, "text", text);
        nest->Release();
        isAssigned ? void(set = nest->set) : void(set.SetFromProperties(nest->set));
        EXPECT_FALSE(ZrvReadProperty<KELSysTSBaseUnknown*>(set, "object").Get());
        EXPECT_TRUE(set.GetProperty("text")->IsPurelyIdenticalTo(text));
    }
}

TEST(Hosts, AnObjectMayReplaceTheSetThatCountsIt)
{
    struct Replacing : ZrvPrototypeImpl {
        KELUINT32 AddRef() override { return *replaced = with, ZrvPrototypeImpl::AddRef(); }
        ZrvProperties own, with, *replaced = &own;
    } object;
    const ZrvPropertyValue<KELSysTSBaseUnknown*> value(&object), none(nullptr);
    ZrvProperties source, nested;
    source.AddProperty("first", "float", nullptr), object.with.AddProperty("first", "float", nullptr);
    nested = source, nested.AddProperty("nested", "float", &object);
    ZrvPublishProperty(source, "object", value), ZrvPublishProperty(source, "last", 0.5F);
    ZrvProperties set(source), held(source);
    object.replaced = &set;
    EXPECT_TRUE(set.SetProperty("object", value).IsError() && !set.HasProperty("object"));
    ZrvPublishProperty(object.with, "object", none), ZrvPublishProperty(object.with, "other", 0.0F);
    ZrvPublishProperty(object.with, "last", 0.0F);
    object.replaced = &held;
    EXPECT_TRUE(held.SetFromProperties(source).IsValid() && ZrvReadProperty<float>(held, "last") == 0.5F);
    EXPECT_EQ(ZrvReadProperty<float>(held, "other"), 0.0F) << "has come to where the last one was";
    EXPECT_EQ(ZrvReadProperty<float>((object.replaced = &source, ZrvProperties(source)), "last"), 0.5F) << "whole";
    EXPECT_TRUE((object.replaced = &nested, ZrvProperties(nested)).HasProperty("nested") && nested.HasProperty("last"));
    CheckRecorder reports;
    set.AddProperty("last", "KELSysTSBaseUnknownPtr", nullptr), object.replaced = &set;
    EXPECT_TRUE(set.SetProperty("last", value).IsError() && reports.Take() != "") << "is a float then";
}

TEST(Hosts, PrototypesNestedDeeplyGoOneByOne)
{
    static const char* s_frame = nullptr;
    struct Innermost : ZrvPrototypeImpl {
        ~Innermost() override { s_frame = static_cast<const char*>(__builtin_frame_address(0)); }
    };
    auto outermost = KELReference<ZrvPrototypeImpl>::Adopt(new Innermost);
    for (int i = 0; i < 100000; ++i) {
        auto* const outer = new ZrvPrototypeImpl;
        outer->AddProperty("nested", zrvPT_Float, outermost.Get());
        outermost = KELReference<ZrvPrototypeImpl>::Adopt(outer);
    }
    outermost = nullptr;
    EXPECT_LT(std::llabs(static_cast<const char*>(__builtin_frame_address(0)) - s_frame), 20000);
}

} // namespace
