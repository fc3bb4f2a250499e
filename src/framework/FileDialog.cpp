#include "framework/FileDialog.h"

#include <QAbstractItemView>
#include <QFileDialog>
#include <QStringList>

#include "framework/Text.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

// "Text|*.a;*.b|Text|*.c|" in Qt's form, an entry each: "Text (*.a *.b)". Text that lists its patterns already in
// brackets shows them once.
QStringList QtFilters(const std::string &filter) {
    const QStringList parts = ToQString(filter).split('|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString text = parts[i];
        if (const qsizetype bracket = text.indexOf('('); bracket > 0) text.truncate(bracket);
        QString patterns = parts[i + 1];
        filters << text.trimmed() + " (" + patterns.replace(';', ' ').replace("*.*", "*") + ")";
    }
    return filters;
}

// The same patterns in both cases: "*.c" finds MAIN.C too.
QString WithoutCase(const QString &filter) {
    const qsizetype bracket = filter.lastIndexOf('(');
    QStringList patterns = filter.mid(bracket + 1).chopped(1).split(' ', Qt::SkipEmptyParts);
    for (qsizetype i = patterns.size(); i-- > 0;)
        if (const QString upper = patterns[i].toUpper(); upper != patterns[i]) patterns << upper;
    return filter.left(bracket) + "(" + patterns.join(' ') + ")";
}

}  // namespace

bool CFileDialog::DoModal(QWidget *parent) {
    QFileDialog dialog(parent, ToQString(title));
    if (multiple && !mustExist) dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(kind == Kind::save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(kind == Kind::save || !mustExist ? QFileDialog::AnyFile
                       : multiple                       ? QFileDialog::ExistingFiles
                                                        : QFileDialog::ExistingFile);
    if (kind == Kind::folder) {
        dialog.setFileMode(QFileDialog::Directory);
        dialog.setOption(QFileDialog::ShowDirsOnly);
    }
    if (multiple && !mustExist)  // new names beside several old ones: no mode of the toolkit's has both
        for (QAbstractItemView *view : dialog.findChildren<QAbstractItemView *>())
            if (view->objectName() == "listView" || view->objectName() == "treeView")
                view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, kind == Kind::open || !askBeforeOverwrite);
    dialog.setDefaultSuffix(ToQString(defaultExtension));

    const QStringList shown = QtFilters(filter);
    QStringList filters;
    for (const QString &each : shown) filters << WithoutCase(each);
    dialog.setNameFilters(filters);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    if (filterIndex >= 1 && filterIndex <= filters.size()) dialog.selectNameFilter(filters[filterIndex - 1]);

    if (!initialDirectory.empty() && DirectoryExists(initialDirectory))
        dialog.setDirectory(ToQString(ToNativePath(initialDirectory)));
    if (!fileName.empty()) dialog.selectFile(ToQString(ToNativePath(fileName)));

    if (dialog.exec() != QDialog::Accepted) return false;
    const qsizetype selected = filters.indexOf(dialog.selectedNameFilter());
    if (selected >= 0) filterIndex = static_cast<int>(selected) + 1;
    paths.clear();
    for (const QString &file : dialog.selectedFiles()) paths.push_back(FromNativePath(FromQString(file)));
    // Beside a typed name the offered one can still be selected in the list; the typed one comes last.
    if (!multiple && paths.size() > 1) paths = {paths.back()};
    return !paths.empty();
}
