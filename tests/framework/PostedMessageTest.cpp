#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "framework/MessageTarget.h"

namespace {

constexpr unsigned kNumber = 0x500, kText = 0x501, kUnknown = 0x502;

class Target : public CMessageTarget {
public:
    Target() {
        OnMessage(kNumber, [this](intptr_t first, intptr_t second) {
            received.push_back(std::to_string(first) + "," + std::to_string(second));
            if (onNumber) onNumber(first);
        });
        OnTextMessage(kText, [this](std::string text) { received.push_back(std::move(text)); });
    }
    void OnTimer(int id) override {
        timers.push_back(id);
        if (onTimer) onTimer(id);
    }

    std::vector<std::string> received;
    std::vector<int> timers;
    std::function<void(intptr_t)> onNumber;
    std::function<void(int)> onTimer;
};

bool TurnUntil(const std::function<bool()> &done, int milliseconds = 5000) {
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.hasExpired(milliseconds)) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
    }
    return true;
}

}  // namespace

TEST(PostedMessages, ArriveInTheOrderOfPostingAcrossKindsAndTargets) {
    Target a, b;
    std::vector<std::string> order;
    a.onNumber = [&](intptr_t first) { order.push_back("a" + std::to_string(first)); };
    b.onNumber = [&](intptr_t first) { order.push_back("b" + std::to_string(first)); };
    a.PostMessage(kNumber, 1, -2);
    b.PostMessage(kNumber, 2);
    a.PostMessage(kText, std::make_unique<std::string>(std::string("text\0zero", 9)));
    a.PostMessage(kUnknown, 5);
    a.PostMessage(kNumber, 3);
    EXPECT_TRUE(a.received.empty()) << "a post is never a call";
    ASSERT_TRUE(TurnUntil([] { return WaitingMessages() == 0; }));
    EXPECT_EQ(a.received, (std::vector<std::string>{"1,-2", std::string("text\0zero", 9), "3,0"}));
    EXPECT_EQ(order, (std::vector<std::string>{"a1", "b2", "a3"}));
}

TEST(PostedMessages, OfADeadTargetAreDropped) {
    CMessagePort port;
    EXPECT_FALSE(port.Post(kNumber)) << "a port of nobody";
    {
        Target target;
        port = target.Port();
        EXPECT_TRUE(port.Post(kText, std::make_unique<std::string>("never read")));
    }
    EXPECT_FALSE(port.Post(kText, std::make_unique<std::string>("too late")));
    EXPECT_TRUE(TurnUntil([] { return WaitingMessages() == 0; }));

    // One message's handler ends the target of the next.
    auto second = std::make_unique<Target>();
    Target first;
    first.onNumber = [&](intptr_t) { second.reset(); };
    first.PostMessage(kNumber);
    second->PostMessage(kNumber);
    EXPECT_TRUE(TurnUntil([&] { return WaitingMessages() == 0 && !second; }));
}

TEST(PostedMessages, OfManyThreadsAllArriveOnTheMainThread) {
    constexpr int kThreads = 4, kEach = 2000;
    Target target;
    std::vector<int> last(kThreads, -1);
    bool inOrder = true, here = true;
    const auto mainThread = std::this_thread::get_id();
    int count = 0;
    target.onNumber = [&](intptr_t value) {
        const auto thread = static_cast<size_t>(value / kEach);
        inOrder &= static_cast<int>(value % kEach) == ++last[thread];
        here &= std::this_thread::get_id() == mainThread;
        ++count;
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([port = target.Port(), i] {
            for (int each = 0; each < kEach; ++each) port.Post(kNumber, i * kEach + each);
        });
    for (std::thread &thread : threads) thread.join();
    ASSERT_TRUE(TurnUntil([&] { return count == kThreads * kEach; }));
    EXPECT_TRUE(inOrder);
    EXPECT_TRUE(here);
}

TEST(PostedMessages, LetTimersRunDuringAFlood) {
    Target target;
    target.onNumber = [&](intptr_t) {
        QElapsedTimer clock;
        clock.start();
        while (clock.nsecsElapsed() < 20000) {
        }
    };
    for (int i = 0; i < 20000; ++i) target.PostMessage(kNumber, i);  // 400 ms of work
    target.SetTimer(7, 10);
    ASSERT_TRUE(TurnUntil([] { return WaitingMessages() == 0; }));
    EXPECT_GT(target.timers.size(), 5u);
}

// A handler that shows a box runs a loop of its own, in which further messages have to come through: those that waited
// already as well as those that are posted meanwhile.
TEST(PostedMessages, AreDeliveredWhileAHandlerRunsALoopOfItsOwn) {
    Target target;
    bool reached = false;
    target.onNumber = [&](intptr_t value) {
        if (value == 1) {
            QTimer::singleShot(20, [&] { target.PostMessage(kNumber, 3); });
            reached = TurnUntil([&] { return target.received.size() == 3; }, 2000);
        }
    };
    target.PostMessage(kNumber, 1);
    target.PostMessage(kNumber, 2);
    ASSERT_TRUE(TurnUntil([&] { return target.received.size() == 3; }));
    EXPECT_TRUE(reached);
    EXPECT_EQ(target.received, (std::vector<std::string>{"1,0", "2,0", "3,0"}));
    target.PostMessage(kNumber, 4);
    EXPECT_TRUE(TurnUntil([&] { return target.received.size() == 4; })) << "the queue still wakes";
}

TEST(NumberedTimers, StartAfreshStopAndMayKillThemselves) {
    Target target;
    target.onTimer = [&](int id) {
        if (id == 1) target.KillTimer(1);
    };
    target.SetTimer(1, 5);
    target.SetTimer(2, 5);
    target.SetTimer(3, 60000);
    target.SetTimer(3, 5);  // starts afresh
    EXPECT_TRUE(target.HasTimer(1));
    ASSERT_TRUE(TurnUntil([&] { return std::count(target.timers.begin(), target.timers.end(), 2) >= 3; }));
    EXPECT_EQ(std::count(target.timers.begin(), target.timers.end(), 1), 1);
    EXPECT_GE(std::count(target.timers.begin(), target.timers.end(), 3), 1);
    EXPECT_FALSE(target.HasTimer(1));
    target.KillTimer(99);
}
