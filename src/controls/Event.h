#pragma once

#include <functional>
#include <utility>

namespace korvanta {

// What a control raises to the one owner that listens. A handler may replace itself or run messages while it runs.
template <class... Arguments>
class Event {
  public:
    using Handler = std::function<void(Arguments...)>;

    void Connect(Handler handler) { handler_ = std::move(handler); }
    void Raise(Arguments... arguments) const {
        if (handler_) {
            const Handler current = handler_;
            current(std::forward<Arguments>(arguments)...);
        }
    }

  private:
    Handler handler_;
};

}  // namespace korvanta
