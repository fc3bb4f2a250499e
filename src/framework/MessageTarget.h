// Posted messages and numbered timers.
//
// A posted message carries a number and two parameters, or a number and a text, to a target on the main thread.
// Messages of all threads wait in one queue and are delivered in the order of posting. Delivery runs in slices of a few
// milliseconds between which input, timers and painting get their turn, so that a flood of messages never freezes the
// window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

class CMessageTarget;
struct MessageLink;

// The way to a target from another thread. Copies may outlive the target: a post then answers false and drops the
// message, with its text.
class CMessagePort {
public:
    bool Post(unsigned message, intptr_t first = 0, intptr_t second = 0) const;  // any thread
    bool Post(unsigned message, std::unique_ptr<std::string> text) const;        // any thread; takes the text over

private:
    friend class CMessageTarget;
    std::shared_ptr<MessageLink> link_;
};

class CMessageTarget {
public:
    using Handler = std::function<void(intptr_t first, intptr_t second)>;
    using TextHandler = std::function<void(std::string text)>;

    CMessageTarget();
    virtual ~CMessageTarget();

    const CMessagePort &Port() const { return port_; }
    bool PostMessage(unsigned message, intptr_t first = 0, intptr_t second = 0) {
        return port_.Post(message, first, second);
    }
    bool PostMessage(unsigned message, std::unique_ptr<std::string> text) {
        return port_.Post(message, std::move(text));
    }

    void SetTimer(int id, int milliseconds);  // periodic; set again, it starts afresh
    void KillTimer(int id);
    bool HasTimer(int id) const;

    // Called by the queue. A message without a handler is dropped.
    void Deliver(unsigned message, intptr_t first, intptr_t second);
    void DeliverText(unsigned message, std::string text);

protected:
    void OnMessage(unsigned message, Handler handler);
    void OnTextMessage(unsigned message, TextHandler handler);
    virtual void OnTimer(int id);

private:
    struct Timers;
    CMessagePort port_;
    std::map<unsigned, Handler> handlers_;
    std::map<unsigned, TextHandler> textHandlers_;
    std::unique_ptr<Timers> timers_;
};

// Messages that wait for delivery, of all targets. Any thread: a fast producer holds back while it is high.
size_t WaitingMessages();

// Delivers everything that waits, on the main thread, without turning to other events.
void DeliverWaitingMessages();
