#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace base {

// Lets code in a lower layer reach a higher layer without including it: the lower layer declares
// and raises the signal, the higher layer subscribes. Subscribers are called in the order in which
// they subscribed, and stay subscribed for the life of the signal.
template <class... Args>
class Signal {
  public:
    using Handler = std::function<void(Args...)>;

    void Subscribe(Handler handler) { handlers.push_back(std::move(handler)); }

    void Raise(Args... args) const {
        const auto current = handlers;
        for (const Handler& handler : current) {
            handler(args...);
        }
    }

  private:
    std::vector<Handler> handlers;
};

}  // namespace base
