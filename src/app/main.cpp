#include <QApplication>

#include "app/CommandLine.h"
#include "app/IDEApp.h"
#include "framework/DesktopTheme.h"

int main(int argc, char **argv) {
    QApplication application(argc, argv);  // takes the toolkit's own switches out of the arguments
    QApplication::setApplicationName("Thornwell IDE");
    QApplication::setDesktopFileName("thornwell-ide");
    const CDesktopTheme theme;  // the answer of the desktop's portal comes while the program starts
    CIDEApp ide(ComposeCommandLine({argv, argv + argc}));
    return ide.Run();
}
