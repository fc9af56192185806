#include "Zorvel.h"

#include "CountedObject.h"
#include "ReportingTest.h"

namespace {

using ::testing::PrintToString;
using ZrvPropertyAccessTest = ReportingTest;

/// A value of a caller's own class, which names a type.
template <class Base>
struct Named : Base {
    Named(const char* iType, const Base& iValue) : Base(iValue), type(iType) {}
    KELUnicodeString GetType() const override { return type; }
    const char* type;
};

const ZrvPropertyValue<float> g_half(0.5F);
const Named g_liar("float", ZrvPropertyValueBase());

/// The type names that a value can be cast to.
std::string Casts(const ZrvPropertyValueBase* iValue)
{
    std::string types;
#define ADD_CAST(id, name, type) types += ZrvPropertyCast<type>(iValue) ? " " name : "";
    ZRV_PROPERTY_TYPES(ADD_CAST)
    return types;
}

TEST_F(ZrvPropertyAccessTest, AValueIsCastToItsTypeWhenItsClassIsOfThatType)
{
    ZrvProperties set;
#define ADD_HELD(id, name, type) EXPECT_EQ(Answer(set.AddProperty(name, name, nullptr)), "ok");
    ZRV_PROPERTY_TYPES(ADD_HELD)
    ZrvVisitProperties(set, [&set](const KELUnicodeString& iName, const ZrvPropertyValueBase& iValue) {
        EXPECT_EQ(Casts(&iValue), " " + PrintToString(iName));
        EXPECT_EQ(ZrvReadProperty<float>(set, iName, 9), iName == "float" ? 0 : 9) << iName;
    });
    const Named renamed("double", g_half);
    const Named heir("float", g_half);
    EXPECT_EQ(Casts(nullptr) + Casts(&g_liar) + PrintToString(g_liar) + Casts(&renamed) + PrintToString(renamed),
              "(unknown)(unknown)");
    EXPECT_EQ(PrintToString(Named("colour", g_half)), "(unknown)");
    EXPECT_EQ(Casts(&heir) + PrintToString(heir), " float0.5");
    EXPECT_TRUE(g_half.IsPurelyIdenticalTo(heir) && !g_half.IsPurelyIdenticalTo(renamed));
    EXPECT_TRUE(Named("f", g_half).IsPurelyIdenticalTo(Named("f", g_half)));
}

TEST_F(ZrvPropertyAccessTest, PublishingAddsWhatIsMissingOrSaysWhatIsInTheWay)
{
    const auto prototype = KELReference<ZrvPrototypeImpl>::Adopt(new ZrvPrototypeImpl);
    EXPECT_EQ(Answer(prototype->AddProperty("odd", "c", nullptr)), "ok");
    EXPECT_EQ(Answer(ZrvDeclareProperties(*prototype.Get(),
                                          {{"odd", zrvPT_Float}, {"width", zrvPT_UINT32}, {"ratio", zrvPT_Float}})),
              "error: odd: cannot be declared as a float");
    ZrvProperties bound(prototype.Get());
    ZrvProperties set;
    const Named odd("c", ZrvPropertyValueBase());
    const ZrvPropertyValue<double> three(3);
    const std::string refused = " [condition m_value->SetValueFromProperty(iValue) in ZrvProperty]";
    const std::string mismatch = "error: ratio: holds a float, not a double" + refused;
    const std::string lie = "error: ratio: holds a float, and was given a value that only names that type" + refused;
    const struct {
        const char* name;
        const ZrvPropertyValueBase& value;
        std::string free, bound;
    } steps[] = {{"width", g_half, "ok", "error: width: is declared as a KELUINT32, not a float"},
                 {"ratio", g_half, "ok", "ok"},
                 {"ratio", three, mismatch, mismatch},
                 {"ratio", g_liar, lie, lie},
                 {"more", g_half, "ok", "error: more: is not declared by the set's prototype"},
                 {"odd", odd, "error: odd: cannot be added\nAddProperty: property not instanciated",
                  "error: odd: cannot be added"}};
    for (const auto& step : steps) {
        EXPECT_EQ(Answer(ZrvPublishProperty(set, step.name, step.value)), step.free);
        EXPECT_EQ(Answer(ZrvPublishProperty(bound, step.name, step.value)), step.bound);
    }
    EXPECT_EQ(InWords(ZrvPublishProperty(bound, "", g_half)), "error: a property needs a name");
    EXPECT_EQ(InWords(ZrvPublishProperty(set, "n", ZrvPropertyValueBase())), "error: n: was given a value of no type");
    EXPECT_NE(reports.Take(), "");
    EXPECT_EQ(Answer(ZrvAddDeclaredProperties(bound)), "error: odd: cannot be added as a c");
    EXPECT_EQ(Answer(ZrvAddDeclaredProperties(set)), "error: the set has no prototype");
    EXPECT_EQ(PrintToString(bound), "ratio  float                   0.5\nwidth  KELUINT32               0\n");
    EXPECT_EQ(ZrvReadProperty<float>(set, "width") + ZrvReadProperty<float>(set, "more"), 1);
}

TEST_F(ZrvPropertyAccessTest, ASetIsPrintedAsASortedTableThatNoTextBreaks)
{
    ZrvProperties set;
    EXPECT_EQ(PrintToString(set), "(no properties)\n");
    EXPECT_EQ(Answer(set.AddProperty("list", "floatList", nullptr)), "ok");
    EXPECT_EQ(Answer(ZrvPublishProperty(set, "\xC3\xA9", "\"\\\n\xC3\xA9\x9B\xE2\x80\xAE\xC2\x9B\x7F")), "ok");
    EXPECT_EQ(Answer(ZrvPublishProperty<KELBoolean>(set, "a\nb", 2)), "ok");
    EXPECT_EQ(PrintToString(set), "a\\x0Ab  KELBoolean              true\nlist    floatList               [0 0 0]\n"
                                  "\xC3\xA9       KELUnicodeString        "
                                  "\"\\\"\\\\\\x0A\xC3\xA9\\x9B\\xE2\\x80\\xAE\\xC2\\x9B\\x7F\"\n");
    EXPECT_EQ(PrintToString(std::vector<ZrvRC>{ZrvRC::zrvEC_NothingDone, ZrvRC(), static_cast<ZrvRC::ErrorCode>(2),
                                               ZrvRC(ZrvRC::zrvEC_Error, "x")}),
              "{ zrvEC_NothingDone, zrvEC_OK, error 2, zrvEC_Error: x }");
    EXPECT_EQ(PrintToString(KELUnicodeString("\n", 2)), std::string("\n\0", 2));
    EXPECT_EQ(ZrvPrintable("a\n\xC3\xA9\x9B") + ZrvPrintable("\n\t", true), "a?\xC3\xA9?\n?");
    std::uint64_t printable = 0; // the sum of their code points, each and one
    for (char32_t code = 0; code < 0x110000; ++code) {
        const auto part = [code](unsigned int iShift) { return static_cast<char>(0x80U | (code >> iShift & 0x3FU)); };
        const char bytes[] = {static_cast<char>(0xF0U | code >> 18U), part(12), part(6), part(0)};
        printable += ZrvPropertyAccess::IsPrintable({bytes, sizeof(bytes)}) ? code + 1 : 0;
    }
    EXPECT_EQ(printable, 20876069206U);
    KELSysTSListOfUnicodeString names;
    names.PutBack("b"), names.PutBack(names[1]);
    const KELSysTSListOfUnicodeString copy(names), all(std::move(names));
    auto it = begin(copy);
    EXPECT_TRUE(decltype(it)() == it && *(*it++).ConvertToChar() == 'b' && ++it == end(copy) && all.Size() == 2);

    const auto object = KELReference<KELSysTSBaseUnknown>::Adopt(new CountedObject);
    EXPECT_EQ(Answer(ZrvPublishProperty(set, "object", object.Get())), "ok");
    EXPECT_EQ(CountOf(*ZrvReadProperty<KELSysTSBaseUnknown*>(set, "object").Get()), 3U);
    unsigned char byte = 'A';
    EXPECT_EQ(PrintToString(*set.GetProperty("object")) + PrintToString(ZrvPropertyValue<unsigned char*>(&byte)),
              "(object)(bytes)");
    EXPECT_EQ(CountOf(*object.Get()), 2U) << "reading and printing give back what they take";
}

} // namespace
