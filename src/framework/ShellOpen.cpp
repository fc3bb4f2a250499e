#include "framework/ShellOpen.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "framework/Text.h"
#include "platform/NativePath.h"

bool ShellOpen(const std::string &path) {
    const QFileInfo file(ToQString(ToNativePath(path)));
    if (!file.isFile() || !file.isReadable()) return false;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}
