#include "Contestants.h"
#include "MillionWorkloads.h"
#include "Workloads.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <mutex>

namespace {

using Lock = std::lock_guard<std::recursive_mutex>;

QVariant ValueOf(Kind iKind, bool iIsFilled)
{
    static unsigned char bytes[16];
    switch (iKind) {
    case Kind::Bytes:
    case Kind::Object:
        return QVariant::fromValue<void*>(iIsFilled ? bytes : nullptr);
    case Kind::Text:
        return iIsFilled ? QString::fromStdString(LongText()) : QString();
    case Kind::Boolean:
        return !iIsFilled;
    case Kind::Int32:
        return iIsFilled ? 25 : 0;
    case Kind::Uint32:
        return iIsFilled ? 1920U : 0U;
    case Kind::Float:
        return iIsFilled ? 1.5F : 0.0F;
    case Kind::Double:
        return iIsFilled ? 29.97 : 0.0;
    case Kind::FloatList:
        return QVariant::fromValue(iIsFilled ? QVector<float>(3, 128.0F) : QVector<float>());
    }
    return {};
}

/// A hash from names to variants behind a lock, with a hash of kinds as its schema.
struct QtContestant {
    static constexpr char kName[] = "QVariantHash";

    using Key = QString;
    using Text = QString;

    static Key MakeKey(const std::string& iName) { return QString::fromStdString(iName); }
    static Text MakeText(const std::string& iText) { return QString::fromStdString(iText); }

    class Schema {
    public:
        explicit Schema(const std::vector<Declaration>& iDeclarations)
        {
            for (const Declaration& declaration : iDeclarations) {
                m_kinds.insert(MakeKey(declaration.name), declaration.kind);
            }
        }

        const QHash<QString, Kind>& Get() const { return m_kinds; }

    private:
        QHash<QString, Kind> m_kinds;
    };

    class Set {
    public:
        Set() = default;
        explicit Set(const Schema& iSchema) : m_kinds(iSchema.Get()) { m_values.reserve(m_kinds.size()); }

        // A copy has values of its own, as every other contestant's: the hash alone would share them until a change.
        Set(const Set& iOther)
        {
            const Lock lock(iOther.m_mutex);
            m_kinds = iOther.m_kinds;
            m_values = iOther.m_values;
            m_values.detach();
        }
        Set& operator=(const Set&) = delete;
        ~Set() = default;

        bool Add(const Key& iKey)
        {
            const Lock lock(m_mutex);
            const auto kind = m_kinds.constFind(iKey);
            if (kind == m_kinds.constEnd()) {
                return false;
            }
            m_values.insert(iKey, ValueOf(*kind, false));
            return true;
        }

        bool AddInt32(const Key& iKey)
        {
            const Lock lock(m_mutex);
            m_values.insert(iKey, 0);
            return true;
        }

        void Fill(const Key& iKey, Kind iKind) { SetValue(iKey, ValueOf(iKind, true)); }
        bool SetInt32(const Key& iKey, std::int32_t iValue) { return SetValue(iKey, iValue); }
        bool SetText(const Key& iKey, const Text& iText) { return SetValue(iKey, iText); }

        bool GetInt32(const Key& iKey, std::int32_t& oValue) const
        {
            const Lock lock(m_mutex);
            const auto found = m_values.constFind(iKey);
            if (found == m_values.constEnd() || found->userType() != QMetaType::Int) {
                return false;
            }
            oValue = found->toInt();
            return true;
        }

        Text GetText(const Key& iKey) const
        {
            const Lock lock(m_mutex);
            const auto found = m_values.constFind(iKey);
            return found != m_values.constEnd() && found->userType() == QMetaType::QString ? found->toString()
                                                                                           : QString();
        }

        bool Has(const Key& iKey) const
        {
            const Lock lock(m_mutex);
            return m_values.contains(iKey);
        }

        bool CopyFrom(const Set& iOther)
        {
            const std::scoped_lock lock(m_mutex, iOther.m_mutex);
            for (auto source = iOther.m_values.constBegin(); source != iOther.m_values.constEnd(); ++source) {
                if (!SetLocked(source.key(), source.value())) {
                    return false;
                }
            }
            return true;
        }

        QStringList List() const
        {
            const Lock lock(m_mutex);
            return m_values.keys();
        }

    private:
        bool SetValue(const Key& iKey, const QVariant& iValue)
        {
            const Lock lock(m_mutex);
            return SetLocked(iKey, iValue);
        }

        bool SetLocked(const Key& iKey, const QVariant& iValue)
        {
            const auto found = m_values.find(iKey);
            if (found == m_values.end() || found->userType() != iValue.userType()) {
                return false;
            }
            *found = iValue;
            return true;
        }

        mutable std::recursive_mutex m_mutex;
        QHash<QString, Kind> m_kinds;
        QHash<QString, QVariant> m_values;
    };
};

} // namespace

void AddQt()
{
    AddSmallWorkloads<QtContestant>();
    AddLargeWorkloads<QtContestant>();
    AddMillionWorkloads<QtContestant>();
}
