#include "LibraryContestant.h"

#include "Contestants.h"
#include "MillionWorkloads.h"
#include "ThreadWorkloads.h"
#include "Workloads.h"

namespace {

class Stream : public KELSysTSBaseUnknown {
public:
    Stream() : KELSysTSBaseUnknown(1) {}
};

unsigned char g_bytes[16];

} // namespace

void LibraryContestant::Set::Fill(const Key& iKey, Kind iKind)
{
    switch (iKind) {
    case Kind::Bytes:
        m_set.SetProperty(iKey, ZrvPropertyValue<unsigned char*>(g_bytes));
        break;
    case Kind::Text:
        m_set.SetProperty(iKey, ZrvPropertyValue<KELUnicodeString>(MakeText(LongText())));
        break;
    case Kind::Boolean:
        m_set.SetProperty(iKey, ZrvPropertyValue<KELBoolean>(0));
        break;
    case Kind::Int32:
        m_set.SetProperty(iKey, ZrvPropertyValue<KELINT32>(25));
        break;
    case Kind::Uint32:
        m_set.SetProperty(iKey, ZrvPropertyValue<KELUINT32>(1920));
        break;
    case Kind::Float:
        m_set.SetProperty(iKey, ZrvPropertyValue<float>(1.5F));
        break;
    case Kind::Double:
        m_set.SetProperty(iKey, ZrvPropertyValue<double>(29.97));
        break;
    case Kind::FloatList: {
        KELRawCollfloat means;
        means.Size(3, 128.0F);
        m_set.SetProperty(iKey, ZrvPropertyValue<KELRawCollfloat>(means));
        break;
    }
    case Kind::Object: {
        const auto stream = KELReference<KELSysTSBaseUnknown>::Adopt(new Stream);
        m_set.SetProperty(iKey, ZrvPropertyValue<KELSysTSBaseUnknown*>(stream.Get()));
        break;
    }
    }
}

void AddLibrary()
{
    AddSmallWorkloads<LibraryContestant>();
    AddLargeWorkloads<LibraryContestant>();
    AddMillionWorkloads<LibraryContestant>();
    AddLongestAddition<LibraryContestant>();
    AddThreadWorkloads<LibraryContestant>();
}
