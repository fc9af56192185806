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
    KELUnicodeString shortText("\"short\" \xE9\x9B\xBB\n");
    KELUnicodeString longText("a text that is too long to lie inside");
    KELRawCollfloat floats;
    floats.Size(3, 0.5F);
    unsigned char byte = 0;
    ZrvProperties set, empty;
    rc.Add(ZrvPublishProperty(set, "width", KELUINT32(1920)));
    rc.Add(ZrvPublishProperty(set, "title", longText)).Add(ZrvPublishProperty(set, "means", floats));
    rc.Add(ZrvPublishProperty(set, "on", KELBoolean(1))).Add(ZrvPublishProperty(set, "rate", 0.25));
    rc.Add(ZrvPublishProperty(set, "gain", 0.5F)).Add(ZrvPublishProperty(set, "count", -1));
    rc.Add(ZrvPublishProperty(set, "bytes", &byte));
    rc.Add(ZrvPublishProperty<KELSysTSBaseUnknown*>(set, "object", inner.Get()));
    const ZrvPropertyValueBase* value = set.GetProperty("rate");
    const ZrvPropertyValueBase* missing = set.GetProperty("missing");
    ZrvRC failure = ZrvRC(ZrvRC::zrvEC_Error, "what went wrong");
    KELListValKELUnicodeString names;
    names.Append(shortText);
    Stop();
    return rc.IsValid() && failure.IsError() && value && !missing && prototype ? 0 : 1;
}
