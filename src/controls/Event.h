#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace korvanta {

// What a control raises to the one owner that listens. A handler may replace itself or run messages while it runs.
// Raising itself takes no memory: handlers catch what they raise, but could not catch what is raised before they run.
template <class... Arguments>
class Event {
  public:
    using Handler = std::function<void(Arguments...)>;

    // An empty handler disconnects.
    void Connect(Handler handler) {
        handler_ = handler ? std::make_shared<const Handler>(std::move(handler)) : nullptr;
    }
    void Raise(Arguments... arguments) const {
        if (const std::shared_ptr<const Handler> current = handler_) {
            (*current)(std::forward<Arguments>(arguments)...);
        }
    }

  private:
    std::shared_ptr<const Handler> handler_;
};

}  // namespace korvanta
