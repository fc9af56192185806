#include "Contestants.h"
#include "Workloads.h"

#include <gst/gst.h>

#include <cstdlib>
#include <memory>
#include <mutex>

namespace {

using Lock = std::lock_guard<std::recursive_mutex>;

struct StructureDeleter {
    void operator()(GstStructure* iStructure) const { gst_structure_free(iStructure); }
};

using StructureHolder = std::unique_ptr<GstStructure, StructureDeleter>;

void SetDefault(GstStructure* ioStructure, const char* iName, Kind iKind, bool iIsFilled)
{
    static unsigned char bytes[16];
    switch (iKind) {
    case Kind::Bytes:
    case Kind::Object:
        gst_structure_set(ioStructure, iName, G_TYPE_POINTER, iIsFilled ? bytes : nullptr, nullptr);
        break;
    case Kind::Text:
        gst_structure_set(ioStructure, iName, G_TYPE_STRING, iIsFilled ? LongText().c_str() : "", nullptr);
        break;
    case Kind::Boolean:
        gst_structure_set(ioStructure, iName, G_TYPE_BOOLEAN, iIsFilled ? FALSE : TRUE, nullptr);
        break;
    case Kind::Int32:
        gst_structure_set(ioStructure, iName, G_TYPE_INT, 0, nullptr);
        break;
    case Kind::Uint32:
        gst_structure_set(ioStructure, iName, G_TYPE_UINT, 0U, nullptr);
        break;
    case Kind::Float:
        gst_structure_set(ioStructure, iName, G_TYPE_FLOAT, 1.0, nullptr);
        break;
    case Kind::Double:
        gst_structure_set(ioStructure, iName, G_TYPE_DOUBLE, 1.0, nullptr);
        break;
    case Kind::FloatList: {
        GValue list = G_VALUE_INIT;
        gst_value_array_init(&list, 3);
        for (int i = 0; iIsFilled && i < 3; ++i) {
            GValue element = G_VALUE_INIT;
            g_value_init(&element, G_TYPE_FLOAT);
            g_value_set_float(&element, 128.0F);
            gst_value_array_append_and_take_value(&list, &element);
        }
        gst_structure_take_value(ioStructure, iName, &list);
        break;
    }
    }
}

/// GStreamer's structure behind a lock. It has no schema: the kinds are looked up by position, and a set takes any
/// type.
struct GStreamerContestant {
    static constexpr char kName[] = "GstStructure";

    using Key = std::string;
    using Text = std::string;

    static Key MakeKey(const std::string& iName) { return iName; }
    static Text MakeText(const std::string& iText) { return iText; }

    using Schema = std::vector<Declaration>;

    class Set {
    public:
        explicit Set(const Schema& iSchema) : m_schema(&iSchema), m_structure(gst_structure_new_empty("bench")) {}

        Set(const Set& iOther) : m_schema(iOther.m_schema)
        {
            const Lock lock(iOther.m_mutex);
            m_structure.reset(gst_structure_copy(iOther.m_structure.get()));
        }
        Set& operator=(const Set&) = delete;
        ~Set() = default;

        bool Add(const Key& iKey)
        {
            const Lock lock(m_mutex);
            const auto next = static_cast<std::size_t>(gst_structure_n_fields(m_structure.get()));
            SetDefault(m_structure.get(), iKey.c_str(), (*m_schema)[next].kind, false);
            return true;
        }

        void Fill(const Key& iKey, Kind iKind) { SetDefault(m_structure.get(), iKey.c_str(), iKind, true); }

        bool SetInt32(const Key& iKey, std::int32_t iValue)
        {
            const Lock lock(m_mutex);
            gst_structure_set(m_structure.get(), iKey.c_str(), G_TYPE_INT, iValue, nullptr);
            return true;
        }

        bool GetInt32(const Key& iKey, std::int32_t& oValue) const
        {
            const Lock lock(m_mutex);
            return gst_structure_get_int(m_structure.get(), iKey.c_str(), &oValue) != FALSE;
        }

        bool SetText(const Key& iKey, const Text& iText)
        {
            const Lock lock(m_mutex);
            gst_structure_set(m_structure.get(), iKey.c_str(), G_TYPE_STRING, iText.c_str(), nullptr);
            return true;
        }

        Text GetText(const Key& iKey) const
        {
            const Lock lock(m_mutex);
            const char* text = gst_structure_get_string(m_structure.get(), iKey.c_str());
            return text ? text : Text();
        }

        bool Has(const Key& iKey) const
        {
            const Lock lock(m_mutex);
            return gst_structure_has_field(m_structure.get(), iKey.c_str()) != FALSE;
        }

        bool CopyFrom(const Set& iOther)
        {
            const std::scoped_lock lock(m_mutex, iOther.m_mutex);
            const auto copy = [](GQuark iField, const GValue* iValue, gpointer ioStructure) -> gboolean {
                gst_structure_id_set_value(static_cast<GstStructure*>(ioStructure), iField, iValue);
                return TRUE;
            };
            return gst_structure_foreach(iOther.m_structure.get(), copy, m_structure.get()) != FALSE;
        }

        std::vector<std::string> List() const
        {
            const Lock lock(m_mutex);
            std::vector<std::string> names;
            const int count = gst_structure_n_fields(m_structure.get());
            names.reserve(static_cast<std::size_t>(count));
            for (int i = 0; i < count; ++i) {
                names.emplace_back(gst_structure_nth_field_name(m_structure.get(), static_cast<guint>(i)));
            }
            return names;
        }

    private:
        mutable std::recursive_mutex m_mutex;
        const Schema* m_schema;
        StructureHolder m_structure;
    };
};

} // namespace

void AddGStreamer()
{
    setenv("GST_REGISTRY_DISABLE", "yes", 0); // plug-ins have no part in this
    gst_init(nullptr, nullptr);
    AddSmallWorkloads<GStreamerContestant>(); // a structure is a list: no more than a few fields make sense
}
