#include "detection/OneAtATime.h"

#include <utility>

namespace korvanta {

namespace {

class Marked {
  public:
    explicit Marked(bool& mark) : mark_(mark) { mark_ = true; }
    ~Marked() { mark_ = false; }
    Marked(const Marked&) = delete;
    Marked& operator=(const Marked&) = delete;

  private:
    bool& mark_;
};

}  // namespace

OneAtATime::OneAtATime(std::function<void()> rebuild) : rebuild_(std::move(rebuild)) {}

void OneAtATime::Run(const std::function<void()>& operation) {
    if (busy_) {
        return;
    }
    const Marked busy(busy_);
    operation();
    while (rebuildWaits_) {
        rebuildWaits_ = false;
        rebuild_();
    }
}

void OneAtATime::Rebuild() {
    if (busy_) {
        rebuildWaits_ = true;
        return;
    }
    Run(rebuild_);
}

}  // namespace korvanta
