#include "Contestants.h"
#include "Workloads.h"

#include <glib-object.h>

#include <memory>
#include <mutex>

namespace {

using Lock = std::lock_guard<std::recursive_mutex>;

// One kind of object that has all declared properties; each lies in a value of its own, in the order of declaration.

struct Media {
    GObject parent;
    GValue values[16];
};

struct MediaClass {
    GObjectClass parent;
};

GObjectClass* g_parentClass = nullptr;
GParamSpec* g_parameters[16];

void SetMediaProperty(GObject* ioObject, guint iProperty, const GValue* iValue, GParamSpec* /*iSpec*/)
{
    g_value_copy(iValue, &reinterpret_cast<Media*>(ioObject)->values[iProperty - 1]);
}

void GetMediaProperty(GObject* iObject, guint iProperty, GValue* oValue, GParamSpec* /*iSpec*/)
{
    g_value_copy(&reinterpret_cast<Media*>(iObject)->values[iProperty - 1], oValue);
}

void FinalizeMedia(GObject* iObject)
{
    for (GValue& value : reinterpret_cast<Media*>(iObject)->values) {
        g_value_unset(&value);
    }
    g_parentClass->finalize(iObject);
}

GParamSpec* SpecOf(const Declaration& iDeclaration)
{
    const char* name = iDeclaration.name.c_str();
    const auto flags = static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_STATIC_STRINGS);
    switch (iDeclaration.kind) {
    case Kind::Bytes:
        return g_param_spec_pointer(name, name, name, flags);
    case Kind::Text:
        return g_param_spec_string(name, name, name, "", flags);
    case Kind::Boolean:
        return g_param_spec_boolean(name, name, name, TRUE, flags);
    case Kind::Int32:
        return g_param_spec_int(name, name, name, G_MININT, G_MAXINT, 0, flags);
    case Kind::Uint32:
        return g_param_spec_uint(name, name, name, 0, G_MAXUINT, 0, flags);
    case Kind::Float:
        return g_param_spec_float(name, name, name, -G_MAXFLOAT, G_MAXFLOAT, 0.0F, flags);
    case Kind::Double:
        return g_param_spec_double(name, name, name, -G_MAXDOUBLE, G_MAXDOUBLE, 0.0, flags);
    case Kind::FloatList:
        return g_param_spec_boxed(name, name, name, G_TYPE_ARRAY, flags);
    case Kind::Object:
        return g_param_spec_object(name, name, name, G_TYPE_OBJECT, flags);
    }
    return nullptr;
}

void InitClass(gpointer ioClass, gpointer /*iData*/)
{
    auto* objectClass = static_cast<GObjectClass*>(ioClass);
    g_parentClass = static_cast<GObjectClass*>(g_type_class_peek_parent(ioClass));
    objectClass->set_property = &SetMediaProperty;
    objectClass->get_property = &GetMediaProperty;
    objectClass->finalize = &FinalizeMedia;
    guint number = 0;
    for (const Declaration& declaration : MediaDeclarations()) {
        g_parameters[number] = SpecOf(declaration);
        g_object_class_install_property(objectClass, number + 1, g_parameters[number]);
        ++number;
    }
}

void InitMedia(GTypeInstance* ioInstance, gpointer /*iClass*/)
{
    GValue* value = reinterpret_cast<Media*>(ioInstance)->values;
    for (GParamSpec* parameter : g_parameters) {
        g_value_init(value, parameter->value_type);
        g_param_value_set_default(parameter, value);
        ++value;
    }
}

GType MediaType()
{
    static const GType type =
        g_type_register_static_simple(G_TYPE_OBJECT, "ZorvelBenchMedia", sizeof(MediaClass), &InitClass, sizeof(Media),
                                      &InitMedia, static_cast<GTypeFlags>(0));
    return type;
}

struct Unreference {
    void operator()(GObject* ioObject) const { g_object_unref(ioObject); }
};

using ObjectHolder = std::unique_ptr<GObject, Unreference>;

/// GLib's object properties behind a lock. The properties belong to the class: they are there from construction on,
/// and a copy is a new object that gets every value.
struct GLibContestant {
    static constexpr char kName[] = "GObject";

    using Key = std::string;
    using Text = std::string;

    static Key MakeKey(const std::string& iName) { return iName; }
    static Text MakeText(const std::string& iText) { return iText; }

    using Schema = std::vector<Declaration>;

    class Set {
    public:
        explicit Set(const Schema& /*iSchema*/) {}
        Set(const Set& iOther) { CopyFrom(iOther); }
        Set& operator=(const Set&) = delete;
        ~Set() = default;

        bool Add(const Key& iKey) { return Has(iKey); }

        void Fill(const Key& iKey, Kind iKind);

        bool SetInt32(const Key& iKey, std::int32_t iValue)
        {
            const Lock lock(m_mutex);
            g_object_set(m_object.get(), iKey.c_str(), iValue, nullptr);
            return true;
        }

        bool GetInt32(const Key& iKey, std::int32_t& oValue) const
        {
            const Lock lock(m_mutex);
            g_object_get(m_object.get(), iKey.c_str(), &oValue, nullptr);
            return true;
        }

        bool SetText(const Key& iKey, const Text& iText)
        {
            const Lock lock(m_mutex);
            g_object_set(m_object.get(), iKey.c_str(), iText.c_str(), nullptr);
            return true;
        }

        auto GetText(const Key& iKey) const
        {
            const Lock lock(m_mutex);
            char* text = nullptr;
            g_object_get(m_object.get(), iKey.c_str(), &text, nullptr);
            return std::unique_ptr<char, decltype(&g_free)>(text, &g_free);
        }

        bool Has(const Key& iKey) const
        {
            const Lock lock(m_mutex);
            return g_object_class_find_property(G_OBJECT_GET_CLASS(m_object.get()), iKey.c_str()) != nullptr;
        }

        bool CopyFrom(const Set& iOther)
        {
            const std::scoped_lock lock(m_mutex, iOther.m_mutex);
            for (const Declaration& declaration : MediaDeclarations()) {
                GValue value = G_VALUE_INIT;
                g_object_get_property(iOther.m_object.get(), declaration.name.c_str(), &value);
                g_object_set_property(m_object.get(), declaration.name.c_str(), &value);
                g_value_unset(&value);
            }
            return true;
        }

        std::vector<std::string> List() const
        {
            const Lock lock(m_mutex);
            guint count = 0;
            const std::unique_ptr<GParamSpec*, decltype(&g_free)> found(
                g_object_class_list_properties(G_OBJECT_GET_CLASS(m_object.get()), &count), &g_free);
            std::vector<std::string> names;
            names.reserve(count);
            for (guint i = 0; i < count; ++i) {
                names.emplace_back(g_param_spec_get_name(found.get()[i]));
            }
            return names;
        }

    private:
        mutable std::recursive_mutex m_mutex;
        ObjectHolder m_object{static_cast<GObject*>(g_object_new(MediaType(), nullptr))};
    };
};

void GLibContestant::Set::Fill(const Key& iKey, Kind iKind)
{
    const char* name = iKey.c_str();
    switch (iKind) {
    case Kind::Text:
        g_object_set(m_object.get(), name, LongText().c_str(), nullptr);
        break;
    case Kind::FloatList: {
        const float means[] = {128.0F, 128.0F, 128.0F};
        GArray* list = g_array_append_vals(g_array_new(FALSE, FALSE, sizeof(float)), means, 3);
        g_object_set(m_object.get(), name, list, nullptr);
        g_array_unref(list);
        break;
    }
    case Kind::Object: {
        const ObjectHolder stream(static_cast<GObject*>(g_object_new(G_TYPE_OBJECT, nullptr)));
        g_object_set(m_object.get(), name, stream.get(), nullptr);
        break;
    }
    default: // numbers and addresses cost the same whatever they are
        break;
    }
}

} // namespace

void AddGLib()
{
    AddSmallWorkloads<GLibContestant>(); // the properties of a class are written down, not made by the thousand
}
