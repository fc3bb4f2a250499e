// Sources: written, folded, searched, marked, saved, changed from outside; and the colours that they show in.
#include <QAbstractScrollArea>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QTabWidget>
#include <QTest>

#include "Stops.h"
#include "Tour.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "framework/MDIChildWnd.h"

namespace {

constexpr const char *kSource = R"(/* A ring of received bytes, filled by the interrupt. */
#include "ring.h"

#define RING_SIZE 16

static unsigned char ring[RING_SIZE];
static volatile unsigned char head, tail;

// Called with interrupts off.
void ring_put(unsigned char byte)
{
    unsigned char next = (head + 1) % RING_SIZE;
    if (next != tail) {
        ring[head] = byte;
        head = next;
    }
}

int ring_get(void)
{
    int byte = -1;
    while (head != tail) {
        byte = ring[tail];
        tail = (tail + 1) % RING_SIZE;
        break;
    }
    return byte;
}

const char *ring_state(void)
{
    if (head == tail) {
        return "empty";
    } else {
        return "bytes wait";
    }
}
)";

void SetBox(QWidget &dialog, const char *word, bool on) {
    for (QCheckBox *box : dialog.findChildren<QCheckBox *>())
        if (box->text().remove('&').contains(word)) box->setChecked(on);
}

// Clicks into the folding margin beside a line.
void ClickFold(const CIDEView &view, int line, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    const auto position = view.Send(SCI_POSITIONFROMLINE, static_cast<uintptr_t>(line));
    const int x = static_cast<int>(view.Send(SCI_GETMARGINWIDTHN, 0) + view.Send(SCI_GETMARGINWIDTHN, 1) + 7);
    const int y = static_cast<int>(view.Send(SCI_POINTYFROMPOSITION, 0, position)) + 6;
    auto *area = qobject_cast<QAbstractScrollArea *>(view.Sci().Widget());
    QTest::mouseClick(area ? area->viewport() : view.Sci().Widget(), Qt::LeftButton, keys, QPoint(x, y));
}

bool IsLineShown(const CIDEView &view, int line) {
    return view.Send(SCI_GETLINEVISIBLE, static_cast<uintptr_t>(line)) != 0;
}

void ChooseScheme(QWidget &dialog, const char *scheme) {
    for (QComboBox *box : dialog.findChildren<QComboBox *>()) {
        const int index = box->findText(scheme);
        if (index < 0) continue;
        box->setCurrentIndex(index);
        emit box->activated(index);
    }
}

}  // namespace

void EditSources(CTour &tour) {
    CScratch scratch;
    scratch.Write("ring.c", kSource);
    scratch.Write("ring.h", "void ring_put(unsigned char byte);\nint ring_get(void);\n");
    CProgram program(scratch, {scratch.Native("ring.c")});
    tour.Say("Start on a single source");
    tour.Check(program.Start(), "the program starts");
    program.Frame().resize(1240, 800);
    CIDEView *view = program.ActiveView();
    tour.Check(view, "the source is open");
    program.ActiveView()->GetParentFrame()->showMaximized();

    tour.Say("Switch folding and line numbers on");
    tour.Dialog(program, ID_EDITOR_SETTINGS, "settings-general", [](QWidget &dialog) {
        SetBox(dialog, "Folding", true);
        SetBox(dialog, "Line numbers", true);
    }, true);
    tour.Check(program.App().editorProperties.fold && program.App().editorProperties.lineNumbers, "the settings hold");

    tour.Say("Write a line");
    view->Sci().Widget()->setFocus();
    view->Send(SCI_GOTOPOS, static_cast<uintptr_t>(view->Send(SCI_GETLINEENDPOSITION, 3)));
    QTest::keyClick(view->Sci().Widget(), Qt::Key_Return);
    QTest::keyClicks(view->Sci().Widget(), "#define RING_MASK (RING_SIZE - 1)");
    program.Settle();
    tour.Check(program.ActiveDocument()->GetTitle().ends_with(" *"), "the title carries the star");
    program.Command(ID_BOOKMARK_TOGGLE);
    view->Send(SCI_GOTOLINE, 13);
    program.Command(ID_BREAKPOINT_TOGGLE);
    view->Send(SCI_GOTOPOS, static_cast<uintptr_t>(view->Send(SCI_POSITIONFROMLINE, 13) + 7));
    tour.Picture(program, "edited");

    tour.Say("Fold by the three clicks");
    ClickFold(*view, 11);
    tour.Check(!IsLineShown(*view, 13), "a click contracts a block");
    ClickFold(*view, 20, Qt::ControlModifier);
    tour.Check(!IsLineShown(*view, 24), "a click with Ctrl contracts a block and what is in it");
    tour.Picture(program, "folded");
    ClickFold(*view, 20, Qt::ShiftModifier);
    tour.Check(IsLineShown(*view, 24), "a click with Shift expands all of a block");
    ClickFold(*view, 11, Qt::ShiftModifier | Qt::ControlModifier);
    tour.Check(IsLineShown(*view, 13), "a click with both turns all blocks over");

    tour.Say("Find a word");
    tour.Dialog(program, ID_EDIT_FIND, "find", [](QWidget &dialog) {
        for (QComboBox *box : dialog.findChildren<QComboBox *>())
            if (box->isEditable()) box->setEditText("RING_SIZE");
    }, true);
    program.Command(ID_EDIT_FIND_NEXT);
    tour.Check(view->Sci().GetSelectedText() == "RING_SIZE", "the word is selected");
    tour.Picture(program, "found");

    tour.Say("Save, with the line ends that saved files have");
    program.Command(ID_FILE_SAVE);
    tour.Check(Contains(scratch.Read("ring.c"), "RING_MASK (RING_SIZE - 1)\r\n"), "the file holds the line");
    tour.Check(!program.ActiveDocument()->GetTitle().ends_with("*"), "the star is gone");

    tour.Say("Load what another program wrote");
    program.Answer(IDYES);
    std::string changed = scratch.Read("ring.c");
    changed.insert(0, "/* written elsewhere */\r\n");
    program.Settle(1100);  // for file systems with coarse times
    scratch.Write("ring.c", changed);
    tour.Check(program.WaitFor([&] { return program.AnswersLeft() == 0; }, std::chrono::seconds(10)),
               "the program asks about the changed file");
    tour.Check(program.WaitFor([&] { return Contains(view->Sci().GetText(), "written elsewhere"); }),
               "the text is the new one");

    tour.Say("Switch to the header");
    program.Command(ID_OPEN_COUNTERPART);
    tour.Check(program.ActiveFile() == "ring.h", "the counterpart is open");
    tour.Picture(program, "counterpart");
    tour.Check(program.Unexpected().empty(), "no other box came up");
}

void ChooseColours(CTour &tour) {
    CScratch scratch;
    scratch.Write("ring.c", kSource);
    CProgram program(scratch, {scratch.Native("ring.c")});
    tour.Say("Choose colours");
    tour.Check(program.Start(), "the program starts");
    program.Frame().resize(1240, 800);
    program.ActiveView()->GetParentFrame()->showMaximized();
    for (const char *scheme : {"Borland", "Midnight", "Visual C++", "Default"}) {
        tour.Dialog(program, ID_EDITOR_SETTINGS, "settings-syntax", [scheme](QWidget &dialog) {
            if (auto *pages = dialog.findChild<QTabWidget *>()) pages->setCurrentIndex(1);
            ChooseScheme(dialog, scheme);
        }, true);
        tour.Picture(program, "scheme");
    }
    tour.Check(program.Unexpected().empty(), "no box came up");
}
