#include "OwnMemory.h"
#include "ZrvProperties.h"
#include "ZrvPropertyValue.h"
#include "ZrvPrototypeImpl.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// The allocations that an operation makes.
template <class Operation>
long AllocationsOf(const Operation& iOperation)
{
    const long before = OwnMemory::Allocations();
    iOperation();
    return OwnMemory::Allocations() - before;
}

template <class T>
void UseProperty(const T& iContents)
{
    const ZrvPropertyValue<T> value(iContents);
    const KELUnicodeString name(std::string(1000, 'n').c_str());
    ZrvProperties set;
    static_cast<void>(set.AddProperty(name.ConvertToChar(), value.GetType(), nullptr));
    EXPECT_EQ(AllocationsOf([&] {
                  EXPECT_TRUE(set.SetProperty(name, value).IsValid());
                  const ZrvPropertyValueBase* const held = set.GetProperty(name);
                  static_cast<void>(static_cast<const ZrvPropertyValue<T>*>(held)->GetValue());
                  EXPECT_TRUE(held->IsPurelyIdenticalTo(value) && set.HasProperty(name));
                  EXPECT_EQ(set.GetAvailability(name), ZrvProperties::zrvPA_Instantiated);
                  EXPECT_GT(set.GetPropertyType(name).GetLengthInChar(), 0);
              }),
              0)
        << value.GetType().ConvertToChar();
    EXPECT_EQ(AllocationsOf([&] { EXPECT_EQ(set.HasProperty("x"), 0); }), 1) << "the key itself";
}

TEST(Allocations, NoneForAPropertyThatIsThere)
{
    unsigned char byte = 0;
    UseProperty(&byte);
    UseProperty(KELUnicodeString("a text of some length"));
    UseProperty(KELBoolean{1});
    UseProperty(KELINT32{1});
    UseProperty(KELUINT32{1});
    UseProperty(1.0F);
    UseProperty(1.0);
    UseProperty(KELRawCollfloat(7));
    UseProperty<KELSysTSBaseUnknown*>(nullptr);
}

TEST(Allocations, OneForEachPropertyOfASetAndFewForTheSet)
{
    KELUnicodeString names[16];
    ZrvPrototypeImpl prototype;
    for (int i = 0; i < 16; ++i) {
        names[i] = KELUnicodeString(("property" + std::to_string(i)).c_str());
        static_cast<void>(prototype.AddProperty(names[i], static_cast<ZrvPropertyType>(i % 9), nullptr));
    }
    ZrvProperties set(&prototype);
    EXPECT_LE(AllocationsOf([&] {
                  for (const KELUnicodeString& name : names) {
                      static_cast<void>(set.AddProperty(name));
                  }
              }),
              18);
    EXPECT_LE(AllocationsOf([&] { const ZrvProperties copy(set); }), 20);
}

TEST(Allocations, NoneForSuccessAndForCopiesOfText)
{
    const KELUnicodeString text("a text of some length");
    EXPECT_EQ(AllocationsOf([&] {
                  ZrvRC rc = ZrvRC::zrvEC_OK;
                  rc.Add(ZrvRC());
                  KELUnicodeString copy(text);
                  copy = text;
                  EXPECT_EQ(copy, ZrvRC(ZrvRC::zrvEC_Error, text).GetTrace());
              }),
              0);
}

} // namespace
