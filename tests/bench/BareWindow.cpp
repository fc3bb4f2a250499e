// The least that a program of main window, menu, tool bar and status bar costs to start.
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.menuBar()->addMenu("File")->addAction("Exit");
    window.addToolBar("Main")->addAction("Exit");
    window.statusBar()->showMessage("Ready");
    window.resize(1200, 800);
    window.show();
    return QApplication::exec();
}
