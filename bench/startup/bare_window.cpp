// The yardstick for start-up cost: the least a Qt Widgets program must do to
// put one window on screen. Built with the same compiler, flags and build type
// as the application, so the difference between the two is the application's own.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QWidget window;
    window.resize(450, 350);
    window.show();
    return app.exec();
}
