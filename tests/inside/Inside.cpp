// What the test of the debugger's view looks at while Stop is called.

#include "Zorvel.h"

void Stop() {}

int main()
{
    const auto inner = KELReference<ZrvPrototypeImpl>::Adopt(new ZrvPrototypeImpl);
    ZrvRC rc = inner->AddProperty("depth", zrvPT_INT32, nullptr);
    const auto outer = KELReference<ZrvPrototypeImpl>::Adopt(new ZrvPrototypeImpl);
    rc.Add(outer->AddProperty("stream", zrvPT_BaseUnknownPtr, inner.Get()));
    rc.Add(outer->AddProperty("width", zrvPT_UINT32, nullptr));
    ZrvConstPropertiesPrototype* prototype = outer.Get();
    KELUnicodeString shortText("\"short\" \xE9\x9B\xBB\n"), longText("a text that is too long to lie inside");
    KELRawCollfloat floats;
    floats.Size(3, 0.5F);
    unsigned char byte = 0;
    ZrvProperties set, empty;
    const auto add = [&](const char* iName, const auto& iValue) { rc.Add(ZrvPublishProperty(set, iName, iValue)); };
    add("width", KELUINT32(1920)), add("title", longText), add("means", floats), add("on", KELBoolean(1));
    add("rate", 0.25), add("gain", 0.5F), add("count", -1), add("bytes", &byte);
    rc.Add(ZrvPublishProperty<KELSysTSBaseUnknown*>(set, "object", inner.Get()));
    const ZrvPropertyValueBase *value = set.GetProperty("rate"), *missing = set.GetProperty("missing");
    ZrvRC failure = ZrvRC(ZrvRC::zrvEC_Error, "what went wrong");
    KELListValKELUnicodeString names;
    names.Append(shortText);
    Stop();
    return rc.IsValid() && failure.IsError() && value && !missing && prototype ? 0 : 1;
}
