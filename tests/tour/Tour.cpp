#include "Tour.h"

#include <QApplication>
#include <QDialog>
#include <iostream>

CTour::CTour(std::filesystem::path directory)
    : directory_(std::move(directory)), log_(directory_ / "tour.log") {}

void CTour::Say(const std::string &words) {
    std::cout << words << std::endl;
    log_ << words << std::endl;
}

void CTour::Check(bool holds, const std::string &what) {
    if (holds) return;
    Say("FAILED: " + what);
    std::exit(1);
}

void CTour::Picture(CProgram &program, const std::string &name) { program.Grab(NextPicture(name)); }

void CTour::PictureOf(QWidget &widget, const std::string &name) {
    widget.grab().save(QString::fromStdString(NextPicture(name)));
}

void CTour::Dialog(CProgram &program, int command, const std::string &name,
                   const std::function<void(QWidget &)> &act, bool accept) {
    program.AnswerDialog([this, &name, &act, accept](QWidget &window) {
        if (act) act(window);
        QApplication::processEvents();
        PictureOf(window, name);
        auto *dialog = qobject_cast<QDialog *>(&window);
        if (accept && dialog)
            dialog->accept();
        else
            window.close();
    });
    program.Command(command);
    Check(program.AnswersLeft() == 0, "the dialog of " + name + " opens");
}

std::string CTour::NextPicture(const std::string &name) {
    char number[16];
    snprintf(number, sizeof number, "%02d", ++pictures_);
    const std::string file = number + ("-" + name) + ".png";
    Say("  picture " + file);
    return (directory_ / file).string();
}

bool Contains(const std::string &text, const std::string &part) { return text.find(part) != std::string::npos; }
