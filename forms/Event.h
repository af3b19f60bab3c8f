#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace forms {

// Something that happens and that others want to hear of. Lets a lower file reach a higher one
// without including it: the lower one declares and raises, the higher one subscribes.
// Subscribers are called in the order in which they subscribed; one may unsubscribe any other
// while an event is being raised.
template <class... Args>
class Event {
  public:
    using Handler = std::function<void(Args...)>;

    // Returns a token for Unsubscribe.
    std::size_t Subscribe(Handler handler) {
        handlers.emplace_back(++lastToken, std::move(handler));
        return lastToken;
    }

    void Unsubscribe(std::size_t token) {
        std::erase_if(handlers, [token](const auto& entry) { return entry.first == token; });
    }

    void Clear() { handlers.clear(); }
    bool HasSubscribers() const { return !handlers.empty(); }

    void Raise(Args... args) const {
        const auto current = handlers;
        for (const auto& entry : current) {
            entry.second(args...);
        }
    }

  private:
    std::vector<std::pair<std::size_t, Handler>> handlers;
    std::size_t lastToken = 0;
};

}  // namespace forms
