// The least that a program with a window does: what the start of others is compared with.
#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <cstdio>

namespace {

class EmptyWindow : public QWidget
{
    void paintEvent(QPaintEvent *) override
    {
        QTimer::singleShot(0, this, [] { std::fputs("painted\n", stderr); });
    }
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    EmptyWindow window;
    window.resize(1440, 840);
    window.show();
    return QApplication::exec();
}
