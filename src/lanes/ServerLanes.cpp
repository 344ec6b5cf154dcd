#include "lanes/ServerLanes.h"

#include <atomic>
#include <new>
#include <utility>

namespace korvanta {

namespace {

// Shared by who asks and the lane; both say when they are through with it.
struct Exchange {
    enum Phase { underWay, answered, givenUp };
    std::atomic<int> phase = underWay;
    bool failed = false;
    std::function<void()> question;
    std::function<void()> undo;

    void Answer() {
        try {
            question();
        } catch (...) {
            failed = true;
        }
        if (phase.exchange(answered) == givenUp && undo && !failed) {
            undo();
        }
    }
};

}  // namespace

bool ServerLanes::Ask(const std::u16string& server, Patience patience, std::function<void()> question,
                      std::function<void()> undo) {
    if (server.empty()) {
        question();
        return true;
    }
    const auto exchange = std::make_shared<Exchange>();
    exchange->question = std::move(question);
    exchange->undo = std::move(undo);
    if (!Run(
            server, [exchange] { exchange->Answer(); }, patience) &&
        exchange->phase.exchange(Exchange::givenUp) != Exchange::answered) {
        return false;
    }
    if (exchange->failed) {
        throw std::bad_alloc();
    }
    return true;
}

std::shared_ptr<Lane> ServerLanes::LaneOf(const std::u16string& server) {
    std::erase_if(lanes_, [&](const auto& entry) { return entry.second.use_count() == 1 && entry.second->AtRest(); });
    std::shared_ptr<Lane>& lane = lanes_[server];
    if (lane == nullptr) {
        lane = std::make_shared<Lane>(workers_);
    }
    return lane;
}

bool ServerLanes::Run(const std::u16string& server, std::function<void()> work, Patience patience) {
    if (patience == Patience::Limited && lanes_.size() >= mostStuck && !lanes_.contains(server)) {
        std::erase_if(lanes_, [](const auto& entry) { return entry.second.use_count() == 1 && !entry.second->Busy(); });
        if (lanes_.size() >= mostStuck) {
            return false;
        }
    }
    return LaneOf(server)->Run(std::move(work), patience);
}

void ServerLanes::Leave(const std::u16string& server, std::function<void()> work) {
    if (server.empty()) {
        work();
        return;
    }
    LaneOf(server)->Leave(std::move(work));
}

bool ServerLanes::Stuck(const std::u16string& server) {
    const auto found = lanes_.find(server);
    return found != lanes_.end() && found->second->Stuck();
}

}  // namespace korvanta
