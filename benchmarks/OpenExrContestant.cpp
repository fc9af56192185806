#include "Contestants.h"
#include "Workloads.h"

#include <ImfDoubleAttribute.h>
#include <ImfFloatAttribute.h>
#include <ImfFloatVectorAttribute.h>
#include <ImfHeader.h>
#include <ImfIntAttribute.h>
#include <ImfStringAttribute.h>
#include <ImfVecAttribute.h>

#include <map>
#include <mutex>

namespace {

using Lock = std::lock_guard<std::recursive_mutex>;

void Insert(Imf::Header& ioHeader, const char* iName, Kind iKind, bool iIsFilled)
{
    switch (iKind) {
    case Kind::Bytes:
    case Kind::Object: // there is no attribute for an address: one of the same size
        ioHeader.insert(iName, Imf::V2iAttribute(Imath::V2i(0, 0)));
        break;
    case Kind::Text:
        ioHeader.insert(iName, Imf::StringAttribute(iIsFilled ? LongText() : std::string()));
        break;
    case Kind::Boolean:
    case Kind::Int32:
    case Kind::Uint32:
        ioHeader.insert(iName, Imf::IntAttribute(iIsFilled ? 25 : 0));
        break;
    case Kind::Float:
        ioHeader.insert(iName, Imf::FloatAttribute(1.0F));
        break;
    case Kind::Double:
        ioHeader.insert(iName, Imf::DoubleAttribute(1.0));
        break;
    case Kind::FloatList:
        ioHeader.insert(iName, Imf::FloatVectorAttribute(std::vector<float>(iIsFilled ? 3U : 0U)));
        break;
    }
}

/// OpenEXR's header behind a lock. It brings a few attributes of its own, and checks types but has no schema.
struct OpenExrContestant {
    static constexpr char kName[] = "Imf::Header";

    using Key = std::string;
    using Text = std::string;

    static Key MakeKey(const std::string& iName) { return iName; }
    static Text MakeText(const std::string& iText) { return iText; }

    class Schema {
    public:
        explicit Schema(const std::vector<Declaration>& iDeclarations)
        {
            for (const Declaration& declaration : iDeclarations) {
                m_kinds[declaration.name] = declaration.kind;
            }
        }
        Kind Find(const std::string& iName) const { return m_kinds.find(iName)->second; }

    private:
        std::map<std::string, Kind> m_kinds;
    };

    class Set {
    public:
        explicit Set(const Schema& iSchema) : m_schema(&iSchema) {}

        Set(const Set& iOther) : Set(iOther, Lock(iOther.m_mutex)) {}
        Set& operator=(const Set&) = delete;
        ~Set() = default;

        bool Add(const Key& iKey)
        {
            const Lock lock(m_mutex);
            Insert(m_header, iKey.c_str(), m_schema->Find(iKey), false);
            return true;
        }

        void Fill(const Key& iKey, Kind iKind) { Insert(m_header, iKey.c_str(), iKind, true); }

        bool SetInt32(const Key& iKey, std::int32_t iValue) { return SetValue<Imf::IntAttribute>(iKey, iValue); }
        bool SetText(const Key& iKey, const Text& iText) { return SetValue<Imf::StringAttribute>(iKey, iText); }

        bool GetInt32(const Key& iKey, std::int32_t& oValue) const
        {
            const Lock lock(m_mutex);
            const auto* attribute = m_header.findTypedAttribute<Imf::IntAttribute>(iKey.c_str());
            if (!attribute) {
                return false;
            }
            oValue = attribute->value();
            return true;
        }

        Text GetText(const Key& iKey) const
        {
            const Lock lock(m_mutex);
            const auto* attribute = m_header.findTypedAttribute<Imf::StringAttribute>(iKey.c_str());
            return attribute ? attribute->value() : Text();
        }

        bool Has(const Key& iKey) const
        {
            const Lock lock(m_mutex);
            return m_header.find(iKey.c_str()) != m_header.end();
        }

        bool CopyFrom(const Set& iOther)
        {
            const std::scoped_lock lock(m_mutex, iOther.m_mutex);
            for (auto source = iOther.m_header.begin(); source != iOther.m_header.end(); ++source) {
                m_header.insert(source.name(), source.attribute());
            }
            return true;
        }

        std::vector<std::string> List() const
        {
            const Lock lock(m_mutex);
            std::vector<std::string> names;
            for (auto entry = m_header.begin(); entry != m_header.end(); ++entry) {
                names.emplace_back(entry.name());
            }
            return names;
        }

    private:
        Set(const Set& iOther, const Lock& /*iLockOfOther*/) : m_schema(iOther.m_schema), m_header(iOther.m_header) {}

        template <class Attribute, class Value>
        bool SetValue(const Key& iKey, const Value& iValue)
        {
            const Lock lock(m_mutex);
            auto* attribute = m_header.findTypedAttribute<Attribute>(iKey.c_str());
            if (!attribute) {
                return false;
            }
            attribute->value() = iValue;
            return true;
        }

        mutable std::recursive_mutex m_mutex;
        const Schema* m_schema;
        Imf::Header m_header;
    };
};

} // namespace

void AddOpenExr()
{
    AddSmallWorkloads<OpenExrContestant>();
}
