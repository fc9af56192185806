#ifndef Model_H
#define Model_H

#include "CheckRecorder.h"
#include "ValueModel.h"
#include "ZrvPrototypeImpl.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

/// What an operation is to answer and to report.
struct Outcome {
    ZrvRC::ErrorCode code = ZrvRC::zrvEC_OK;
    std::string trace;
    std::vector<Report> reports;

    static Outcome Error(std::vector<Report> iReports = {}, std::string iTrace = {})
    {
        return {ZrvRC::zrvEC_Error, std::move(iTrace), std::move(iReports)};
    }
    friend bool operator==(const Outcome&, const Outcome&) = default;
};

/// A real prototype that is counted while it lives, for the comparison with the models that live.
class WatchedPrototype : public ZrvPrototypeImpl {
public:
    WatchedPrototype() { ++s_alive; }
    ~WatchedPrototype() override { --s_alive; }
    static inline int s_alive = 0;
};

struct PrototypeModel;
/// Counts as the real references do: what holds a prototype holds one of these.
using PrototypeRef = std::shared_ptr<PrototypeModel>;

struct Declaration {
    std::string type;
    PrototypeRef nested;
};

struct PrototypeModel {
    PrototypeModel() { s_alive += IsWatched(); }
    PrototypeModel(const PrototypeModel&) = delete;
    PrototypeModel& operator=(const PrototypeModel&) = delete;
    ~PrototypeModel() { s_alive -= IsWatched(); }

    /// Every other one; the rest are of the library's own class, for which it has short cuts.
    int IsWatched() const { return age % 2; }

    Outcome Declare(const std::string& iName, const std::string& iType, const PrototypeRef& iNested);

    int age = s_made++;
    ZrvPrototypeImpl* real = IsWatched() ? new WatchedPrototype : new ZrvPrototypeImpl; // gone when this is
    std::map<std::string, Declaration> declared;
    static inline int s_alive = 0;
    static inline int s_made = 0;
};

struct PropertyModel {
    ValueModel value;
    PrototypeRef nested;
};

/// A property set as maps and plain values. The names of a source come in the order in which the real set lists them.
struct SetModel {
    int Availability(const std::string& iName) const;
    Outcome AddTyped(const std::string& iName, const std::string& iType, const PrototypeRef& iNested);
    Outcome AddDeclared(const std::string& iName);
    Outcome Set(const std::string& iName, const ValueModel& iValue);
    Outcome Copy(const SetModel& iSource, const std::vector<std::string>& iOrder);
    Outcome Assign(const SetModel& iSource, const std::vector<std::string>& iOrder);

    PrototypeRef prototype;
    std::map<std::string, PropertyModel> held;
};

#endif
