#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace korvanta {

// An event with at most one handler, that of the control's owner. The handler may replace itself or let messages run.
// Raising an event allocates no memory: a handler catches its own exceptions, but could not catch one from before it
// runs.
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
