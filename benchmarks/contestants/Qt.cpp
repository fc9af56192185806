#include "Contestants.h"
#include "LargeSets.h"
#include "SmallSets.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <mutex>

namespace {

/// A value of a kind, or its default value. Five kinds are enough: a truth value is a number here, an object an
/// address.
QVariant MakeValue(Kind iKind, bool iIsDefault)
{
    static unsigned char bytes[16];
    switch (iKind) {
    case Kind::Text:
        return iIsDefault ? QString() : QString::fromStdString(MakeText(40));
    case Kind::Float:
    case Kind::Double:
        return iIsDefault ? 1.0 : 29.97;
    case Kind::FloatList:
        return QVariant::fromValue(iIsDefault ? QVector<float>() : QVector<float>(3, 128.0F));
    case Kind::Bytes:
    case Kind::Object:
        return QVariant::fromValue<void*>(iIsDefault ? nullptr : bytes);
    default:
        return iIsDefault ? 0 : 25;
    }
}

/// A hash from names to variants behind the baseline's lock, with a hash of default values as its schema.
class QtSet {
    using Lock = std::lock_guard<std::recursive_mutex>;
    using Values = QHash<QString, QVariant>;

public:
    struct Schema {
        explicit Schema(const std::vector<Declaration>& iDeclarations)
        {
            for (const Declaration& declaration : iDeclarations) {
                defaults.insert(QString::fromStdString(declaration.name), MakeValue(declaration.kind, true));
            }
        }

        Values defaults;
    };

    QtSet() = default;
    explicit QtSet(const Schema& iSchema) : m_schema(iSchema.defaults) { m_values.reserve(m_schema.size()); }

    // A copy has values of its own, as every other contestant's: the hash alone would share them until a change.
    QtSet(const QtSet& iOther)
    {
        const Lock lock(iOther.m_mutex);
        m_schema = iOther.m_schema;
        m_values = iOther.m_values;
        m_values.detach();
    }
    QtSet& operator=(const QtSet&) = delete;
    ~QtSet() = default;

    bool Add(const QString& iName)
    {
        const Lock lock(m_mutex);
        const auto declared = m_schema.constFind(iName);
        if (declared == m_schema.constEnd()) {
            return false;
        }
        m_values.insert(iName, *declared);
        return true;
    }

    bool AddInt32(const QString& iName)
    {
        const Lock lock(m_mutex);
        m_values.insert(iName, 0);
        return true;
    }

    bool Fill(const QString& iName, Kind iKind) { return Set(iName, MakeValue(iKind, false)); }
    bool SetNumber(const QString& iName, std::int32_t iValue) { return Set(iName, iValue); }
    bool SetText(const QString& iName, const QString& iText) { return Set(iName, iText); }

    bool Read(const QString& iName, std::int32_t& oValue) const
    {
        const Lock lock(m_mutex);
        const auto found = m_values.constFind(iName);
        const bool isThere = found != m_values.constEnd() && found->userType() == QMetaType::Int;
        oValue = isThere ? found->toInt() : 0;
        return isThere;
    }

    char ReadText(const QString& iName) const
    {
        const Lock lock(m_mutex);
        const auto found = m_values.constFind(iName);
        const bool isThere = found != m_values.constEnd() && found->userType() == QMetaType::QString;
        return isThere ? found->toString().at(0).toLatin1() : '\0';
    }

    bool Has(const QString& iName) const
    {
        const Lock lock(m_mutex);
        return m_values.contains(iName);
    }

    bool CopyFrom(const QtSet& iOther)
    {
        const std::scoped_lock lock(m_mutex, iOther.m_mutex);
        for (auto source = iOther.m_values.constBegin(); source != iOther.m_values.constEnd(); ++source) {
            if (!Assign(m_values.find(source.key()), source.value())) {
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
    bool Assign(Values::iterator iFound, const QVariant& iValue)
    {
        if (iFound == m_values.end() || iFound->userType() != iValue.userType()) {
            return false;
        }
        *iFound = iValue;
        return true;
    }

    bool Set(const QString& iName, const QVariant& iValue)
    {
        const Lock lock(m_mutex);
        return Assign(m_values.find(iName), iValue);
    }

    mutable std::recursive_mutex m_mutex;
    Values m_schema;
    Values m_values;
};

struct QtContestant {
    static constexpr char kName[] = "QVariantHash";

    using String = QString;
    using Schema = QtSet::Schema;
    using Set = QtSet;

    static QString MakeString(const std::string& iText) { return QString::fromStdString(iText); }
};

} // namespace

void AddQt()
{
    AddSmallSets<QtContestant>();
    AddLargeSets<QtContestant>();
}
