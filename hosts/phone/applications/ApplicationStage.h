// The installed applications, and which of them is in front: opening, leaving, and the zoom between icon and
// screen.
#pragma once

#include "hosts/phone/applications/Application.h"

namespace phone {

enum class StageTransition { Zoomed, Immediate };

class ApplicationStage : public std::enable_shared_from_this<ApplicationStage> {
public:
    explicit ApplicationStage(std::vector<std::shared_ptr<Application>> applications);

    const std::vector<std::shared_ptr<Application>>& applications() const { return applications_; }
    std::shared_ptr<Application> find(const std::string& bundleIdentifier) const;
    /// Null on the home screen.
    const std::shared_ptr<Application>& front() const { return front_; }
    /// The applications that have been opened, the last one first.
    const std::vector<std::shared_ptr<Application>>& recent() const { return recent_; }

    /// Brings an application to the front, out of `origin` on the screen.
    void open(std::shared_ptr<Application> application, toolkit::Rect origin, StageTransition transition);
    /// Leaves the application in front, into `target` on the screen.
    void leave(toolkit::Rect target, StageTransition transition);
    /// Lays the window in front over the screen as it now stands.
    void fitScreen();

    static constexpr double zoomDuration = 0.35; // seconds

private:
    std::vector<std::shared_ptr<Application>> applications_;
    std::vector<std::shared_ptr<Application>> recent_;
    std::shared_ptr<Application> front_;
};

} // namespace phone
