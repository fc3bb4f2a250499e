#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "framework/CmdTarget.h"
#include "framework/CommandReplay.h"
#include "framework/Document.h"
#include "framework/MDIChildWnd.h"
#include "framework/MDIFrameWnd.h"
#include "framework/View.h"
#include "framework/WinApp.h"
#include "platform/UserStore.h"

namespace {

std::vector<std::string> calls;

// Command n is handled by the n-th place of the route and by every later one, command 50 by all.
enum Place { kView = 1, kDocument, kChild, kFrame, kApplication };

template <typename Base>
class Handler : public Base {
public:
    Handler(Place place, const char *name) {
        for (int command = kView; command <= place; ++command)
            this->OnCommand(
                command, [name, command] { calls.push_back(name + std::to_string(command)); },
                [](CCmdUI &ui) { ui.SetCheck(); });
        this->OnCommand(
            50, [name] { calls.push_back(std::string(name) + "-shared"); }, [name](CCmdUI &ui) { ui.SetText(name); });
    }
};

class TestDocument : public Handler<CDocument> {
public:
    TestDocument() : Handler(kDocument, "document") {}
    bool OnSaveDocument(const std::string &) override { return true; }
};

class TestView : public Handler<CView> {
public:
    TestView() : Handler(kView, "view") {}
};

class TestChild : public Handler<CMDIChildWnd> {
public:
    TestChild() : Handler(kChild, "child") {}
};

class TestFrame : public Handler<CMDIFrameWnd> {
public:
    TestFrame() : Handler(kFrame, "frame") {}

protected:
    CUserStore &UserStore() override { return store_; }
    std::string ComposeTitle() const override { return "the one title"; }

private:
    CUserStore store_{""};
};

class TestApplication : public Handler<CWinApp> {
public:
    TestApplication() : Handler(kApplication, "application") {}
    bool InitInstance() override {
        mainWnd_ = &frame;
        CDocTemplate::Parts parts{[] { return std::make_unique<TestDocument>(); }, [] { return new TestChild; },
                                  [](CMDIChildWnd *) { return new TestView; }};
        AddDocTemplate(std::make_unique<CDocTemplate>(1, "\n\n\nText\n.txt\n\n", std::move(parts)));
        return true;
    }
    std::string SaveQuestion(const std::string &name) const override { return name; }
    std::string BoxTitle() const override { return {}; }

    TestFrame frame;
};

}  // namespace

TEST(CommandRoute, GoesFromTheViewToTheApplication) {
    TestApplication app;
    app.InitInstance();
    app.frame.show();
    ASSERT_TRUE(app.NewDocument());
    calls.clear();
    for (int command : {kView, kDocument, kChild, kFrame, kApplication}) {
        EXPECT_TRUE(QueryCommand(app.frame, command).checked.value_or(false)) << command;
        app.frame.RunCommand(command);
    }
    EXPECT_EQ(calls, (std::vector<std::string>{"view1", "document2", "child3", "frame4", "application5"}));

    calls.clear();
    EXPECT_EQ(QueryCommand(app.frame, 50).text, "view") << "the first in the route that knows it answers alone";
    app.frame.RunCommand(50);
    app.CloseAllDocuments();
    EXPECT_FALSE(QueryCommand(app.frame, 51).enabled) << "nobody handles it";
    EXPECT_EQ(QueryCommand(app.frame, 50).text, "frame");
    app.frame.RunCommand(50);
    app.frame.RunCommand(kView);
    EXPECT_EQ(calls, (std::vector<std::string>{"view-shared", "frame-shared", "frame1"}));
}

TEST(CommandRoute, OffersACommandToAGivenTargetFirst) {
    TestApplication app;
    app.InitInstance();
    Handler<CCmdTarget> menu(kView, "menu");
    calls.clear();
    app.frame.RunCommand(50, &menu);
    app.frame.RunCommand(kFrame, &menu);
    EXPECT_EQ(calls, (std::vector<std::string>{"menu-shared", "frame4"}));
}

TEST(CommandRoute, RunsNothingThatIsOff) {
    class Target : public CCmdTarget {
    public:
        Target() {
            OnCommand(
                1, [this] { ++runs; }, [](CCmdUI &ui) { ui.Enable(false); });
            OnCommandRange(
                10, 12, [this](int id) { last = id; }, [](CCmdUI &ui) { ui.Enable(ui.id != 11); });
        }
        int runs = 0, last = 0;
    } target;
    EXPECT_FALSE(SendCommand(target, 1));
    EXPECT_EQ(target.runs, 0);
    EXPECT_FALSE(SendCommand(target, 2));
    const struct {
        int id;
        bool runs;
    } cases[] = {{9, false}, {10, true}, {11, false}, {12, true}, {13, false}};
    for (const auto &[id, runs] : cases) {
        target.last = 0;
        EXPECT_EQ(SendCommand(target, id), runs) << id;
        EXPECT_EQ(target.last, runs ? id : 0) << id;
    }
}

TEST(CommandReplay, RunsAtOnceLaterOrNever) {
    const struct {
        bool open, running, agrees;
        std::vector<std::string> expected;
    } cases[] = {
        {false, false, false, {"twin"}},
        {true, true, true, {"stop for 273 77 0"}},
        {true, false, true, {"ask", "end", "twin"}},
        {true, false, false, {"ask"}},
    };
    for (const auto &each : cases) {
        std::vector<std::string> done;
        const auto note = [&done](std::string what) { done.push_back(std::move(what)); };
        ReplayAfterStop({[&] { return each.open; }, [&] { return each.running; },
                         [&](DeferredCommand command) {
                             note("stop for " + std::to_string(command.message) + " " + std::to_string(command.id) +
                                  " " + std::to_string(command.parameter));
                         },
                         [&] {
                             note("ask");
                             return each.agrees;
                         },
                         [&] { note("end"); }},
                        77, [&] { note("twin"); });
        EXPECT_EQ(done, each.expected);
    }
}
