// Takes text that is dropped on the watches.
#pragma once

#include <QObject>
#include <functional>
#include <string>

class QAbstractScrollArea;

class CWatchDropTarget : public QObject {
public:
    using Take = std::function<void(const std::string &line)>;

    // `take` gets the first line of a dropped text, without blanks around; not an empty one. Lives with `view`.
    CWatchDropTarget(QAbstractScrollArea &view, Take take);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    Take take_;
};
