#ifndef HandWrittenContestant_H
#define HandWrittenContestant_H

#include "Declarations.h"
#include "HandWrittenSet.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// A hand-written set on some kind of map.
template <class Maps>
struct HandWrittenContestant {
    using Key = std::string;
    using Text = std::string;

    static Key MakeKey(const std::string& iName) { return iName; }
    static Text MakeText(const std::string& iText) { return iText; }

    class Schema {
    public:
        explicit Schema(const std::vector<Declaration>& iDeclarations)
        {
            for (const Declaration& declaration : iDeclarations) {
                m_types->emplace(declaration.name, static_cast<std::size_t>(declaration.kind));
            }
        }

        std::shared_ptr<const typename HandWrittenSet<Maps>::Schema> Get() const { return m_types; }

    private:
        std::shared_ptr<typename HandWrittenSet<Maps>::Schema> m_types =
            std::make_shared<typename HandWrittenSet<Maps>::Schema>();
    };

    class Set {
    public:
        Set() = default;
        explicit Set(const Schema& iSchema) : m_set(iSchema.Get()) {}

        bool Add(const Key& iKey) { return m_set.Add(iKey); }
        bool AddInt32(const Key& iKey) { return m_set.Add(iKey, std::int32_t()); }
        void Fill(const Key& iKey, Kind iKind) { m_set.Set(iKey, SomeValue(iKind)); }
        bool SetInt32(const Key& iKey, std::int32_t iValue) { return m_set.Set(iKey, iValue); }
        bool GetInt32(const Key& iKey, std::int32_t& oValue) const { return m_set.Get(iKey, oValue); }
        bool SetText(const Key& iKey, const Text& iText) { return m_set.Set(iKey, iText); }
        Text GetText(const Key& iKey) const { return m_set.GetText(iKey); }
        bool Has(const Key& iKey) const { return m_set.Has(iKey); }
        bool CopyFrom(const Set& iOther) { return m_set.SetFrom(iOther.m_set); }
        std::vector<std::string> List() const { return m_set.List(); }

    protected:
        HandWrittenSet<Maps> m_set; // NOLINT: the variant with typed setters reaches it

    private:
        static HandWrittenValue SomeValue(Kind iKind)
        {
            static unsigned char bytes[16];
            switch (iKind) {
            case Kind::Bytes:
                return bytes;
            case Kind::Text:
                return LongText();
            case Kind::Boolean:
                return false;
            case Kind::Int32:
                return std::int32_t(25);
            case Kind::Uint32:
                return std::uint32_t(1920);
            case Kind::Float:
                return 1.5F;
            case Kind::Double:
                return 29.97;
            case Kind::FloatList:
                return std::vector<float>(3, 128.0F);
            case Kind::Object:
                return std::make_shared<HandWrittenObject>();
            }
            return {};
        }
    };
};

/// The baseline.
struct BaselineContestant : HandWrittenContestant<StandardMap> {
    static constexpr char kName[] = "baseline";
};

#endif
