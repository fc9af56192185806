#include "Library.h"

#include "CallersCode.h"
#include "Contestants.h"
#include "LargeSets.h"
#include "SmallSets.h"
#include "Threads.h"

#include <memory>

namespace {

class Stream : public KELSysTSBaseUnknown {
public:
    Stream() : KELSysTSBaseUnknown(1) {}
};

template <class T>
std::unique_ptr<const ZrvPropertyValueBase> MakeValue(const T& iValue)
{
    return std::make_unique<ZrvPropertyValue<T>>(iValue);
}

/// A value that is not the kind's default.
const ZrvPropertyValueBase& SomeValue(Kind iKind)
{
    static unsigned char bytes[16];
    static const auto stream = LibraryContestant::MakeObject();
    KELRawCollfloat means;
    means.Size(3, 128.0F);
    static const std::unique_ptr<const ZrvPropertyValueBase> values[] = {
        MakeValue<unsigned char*>(bytes),
        MakeValue(LibraryContestant::MakeString(MakeText(40))),
        MakeValue<KELBoolean>(0),
        MakeValue<KELINT32>(25),
        MakeValue<KELUINT32>(1920),
        MakeValue(1.5F),
        MakeValue(29.97),
        MakeValue(means),
        MakeValue(stream.Get()),
    };
    return *values[static_cast<std::size_t>(iKind)];
}

#if __has_include("ZrvPropertyAccess.h")
/// What a caller writes first, with kept names or literals: declares, adds, sets, lists, copies and reads.
template <class Name>
bool RunFirstProgram(const Name& iWidth, const Name& iTitle)
{
    const auto prototype = KELReference<ZrvPrototypeImpl>::Adopt(new ZrvPrototypeImpl);
    ZrvRC rc = ZrvDeclareProperties(*prototype.Get(), {{iWidth, zrvPT_UINT32}, {iTitle, zrvPT_UnicodeString}});
    ZrvProperties set(prototype.Get());
    rc.Add(ZrvAddDeclaredProperties(set));
    rc.Add(ZrvPublishProperty<KELUINT32>(set, iWidth, 1920));
    rc.Add(ZrvPublishProperty(set, iTitle, "Clip"));
    KELListValKELUnicodeString names;
    set.GetListProperties(names);
    const ZrvProperties copy(set);
    return rc.IsValid() && names.Size() == 2 && ZrvReadProperty<KELUINT32>(copy, iWidth) == 1920 &&
           ZrvReadProperty<KELUnicodeString>(copy, iTitle) == "Clip";
}

template <class Name>
void FirstProgram(benchmark::State& ioState)
{
    const Name width = "width";
    const Name title = "title";
    Measure(ioState, [&] { return RunFirstProgram(width, title); });
}
#endif

} // namespace

const KELUnicodeString LibraryContestant::Set::g_int32 = ZrvPropertyTypeConv::GetAsUnicode(zrvPT_INT32);

LibraryContestant::Object LibraryContestant::MakeObject()
{
    return Object::Adopt(new Stream);
}

ZrvRC LibraryContestant::Succeed()
{
    return ZrvRC::zrvEC_OK;
}

LibraryContestant::Schema::Schema(const std::vector<Declaration>& iDeclarations)
{
    for (const Declaration& declaration : iDeclarations) {
        const auto type = static_cast<ZrvPropertyType>(declaration.kind);
        static_cast<void>(Get()->AddProperty(MakeString(declaration.name), type, nullptr)); // its uses would fail
    }
}

bool LibraryContestant::Set::Fill(const String& iName, Kind iKind)
{
    return m_set.SetProperty(iName, SomeValue(iKind)).IsValid();
}

void AddLibrary()
{
    AddSmallSets<LibraryContestant>();
    AddObjects<LibraryContestant>();
    AddLargeSets<LibraryContestant>();
    AddCallersCode<LibraryContestant>();
    AddThreads<LibraryContestant>();
    AddOnSet<LibraryContestant>("ReadmeRead", MediaDeclarations(), [](benchmark::State& ioState, const auto& iSet) {
        Measure(ioState, [&] {
            std::uint32_t value = 0;
            const bool succeeded = iSet.ReadWidth(value);
            benchmark::DoNotOptimize(value);
            return succeeded;
        });
    });
#if __has_include("ZrvPropertyAccess.h")
    AddWorkload("FirstProgramKept", LibraryContestant::kName, &FirstProgram<KELUnicodeString>);
    AddWorkload("FirstProgramLiteral", LibraryContestant::kName, &FirstProgram<const char*>);
#endif
}
