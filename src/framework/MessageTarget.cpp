#include "framework/MessageTarget.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QObject>
#include <QTimer>
#include <atomic>
#include <deque>
#include <mutex>
#include <utility>

struct MessageLink {
    CMessageTarget *target;  // null when it is gone; read and written on the main thread
    std::atomic<bool> alive{true};
};

namespace {

constexpr int kSliceMilliseconds = 8;    // longest time of delivery before other events get their turn
constexpr int kMessagesBetweenLooks = 16;  // at the clock

struct Message {
    std::shared_ptr<MessageLink> link;
    unsigned number;
    intptr_t first, second;
    std::unique_ptr<std::string> text;
};

// The one queue. Posting threads push under its lock; the main thread takes all that waits in one go, so that the lock
// is hardly ever contended, and never held while a message is delivered.
class CQueue : public QObject {
public:
    static CQueue &Get() {
        static CQueue *queue = new CQueue;  // outlives every thread that may still post at the end of the process
        return *queue;
    }

    void Push(Message message) {
        bool wake;
        {
            std::lock_guard lock(mutex_);
            posted_.push_back(std::move(message));
            ++waiting_;
            wake = !std::exchange(awake_, true);
        }
        if (wake && QCoreApplication::instance()) QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

    size_t Size() const { return waiting_; }

    // With a limit, stops after it; true when messages are left. A handler may deliver what comes behind it.
    bool Deliver(bool sliced) {
        QElapsedTimer clock;
        clock.start();
        for (int count = 1;; ++count) {
            if (taken_.empty() && !TakePosted()) return false;
            const Message message = std::move(taken_.front());
            taken_.pop_front();
            --waiting_;
            if (CMessageTarget *target = message.link->target; !target)
                continue;
            else if (message.text)
                target->DeliverText(message.number, std::move(*message.text));
            else
                target->Deliver(message.number, message.first, message.second);
            if (sliced && count % kMessagesBetweenLooks == 0 && clock.elapsed() >= kSliceMilliseconds) return true;
        }
    }

protected:
    bool event(QEvent *event) override {
        if (event->type() != QEvent::User) return QObject::event(event);
        DeliverSlice();
        return true;
    }

private:
    CQueue() {
        moveToThread(QCoreApplication::instance() ? QCoreApplication::instance()->thread() : thread());
        again_.setSingleShot(true);
        connect(&again_, &QTimer::timeout, this, [this] { DeliverSlice(); });
    }

    // What a slice leaves waits for a timer of no length: posting an event instead would keep painting and input out.
    // The timer is set beforehand, because a handler may run an event loop of its own, a box, in which it serves too.
    void DeliverSlice() {
        again_.start(0);
        if (!Deliver(true)) again_.stop();
    }

    bool TakePosted() {
        std::lock_guard lock(mutex_);
        if (posted_.empty()) {
            awake_ = false;
            return false;
        }
        taken_.swap(posted_);
        return true;
    }

    std::mutex mutex_;
    std::deque<Message> posted_;      // under the lock
    bool awake_ = false;              // a slice is on its way; under the lock
    std::deque<Message> taken_;       // older than all of posted_; main thread
    std::atomic<size_t> waiting_{0};  // in both
    QTimer again_;
};

}  // namespace

bool CMessagePort::Post(unsigned message, intptr_t first, intptr_t second) const {
    if (!link_ || !link_->alive) return false;
    CQueue::Get().Push({link_, message, first, second, nullptr});
    return true;
}

bool CMessagePort::Post(unsigned message, std::unique_ptr<std::string> text) const {
    if (!link_ || !link_->alive || !text) return false;
    CQueue::Get().Push({link_, message, 0, 0, std::move(text)});
    return true;
}

size_t WaitingMessages() { return CQueue::Get().Size(); }

void DeliverWaitingMessages() { CQueue::Get().Deliver(false); }

struct CMessageTarget::Timers {
    std::map<int, std::unique_ptr<QTimer>> byId;
};

CMessageTarget::CMessageTarget() : timers_(std::make_unique<Timers>()) {
    CQueue::Get();  // belongs to the main thread
    port_.link_ = std::make_shared<MessageLink>();
    port_.link_->target = this;
}

CMessageTarget::~CMessageTarget() {
    port_.link_->alive = false;
    port_.link_->target = nullptr;
}

void CMessageTarget::OnMessage(unsigned message, Handler handler) { handlers_[message] = std::move(handler); }

void CMessageTarget::OnTextMessage(unsigned message, TextHandler handler) {
    textHandlers_[message] = std::move(handler);
}

void CMessageTarget::Deliver(unsigned message, intptr_t first, intptr_t second) {
    const auto it = handlers_.find(message);
    if (it == handlers_.end()) return;
    const Handler handler = it->second;
    handler(first, second);
}

void CMessageTarget::DeliverText(unsigned message, std::string text) {
    const auto it = textHandlers_.find(message);
    if (it == textHandlers_.end()) return;
    it->second(std::move(text));
}

void CMessageTarget::SetTimer(int id, int milliseconds) {
    auto &timer = timers_->byId[id];
    if (!timer) {
        timer = std::make_unique<QTimer>();
        QObject::connect(timer.get(), &QTimer::timeout, timer.get(), [this, id] { OnTimer(id); });
    }
    timer->start(milliseconds);
}

void CMessageTarget::KillTimer(int id) {
    const auto it = timers_->byId.find(id);
    if (it == timers_->byId.end()) return;
    it->second->stop();
    it->second.release()->deleteLater();  // it may be the one that fires now
    timers_->byId.erase(it);
}

bool CMessageTarget::HasTimer(int id) const { return timers_->byId.contains(id); }

void CMessageTarget::OnTimer(int) {}
