#include "shell/first_paint.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLoggingCategory>
#include <QTableView>
#include <QTimer>

namespace ebtq::shell {

namespace {

Q_LOGGING_CATEGORY(startLog, "ebtq.start", QtWarningMsg)

/// Watches the whole program until a list has been painted.
class FirstPaint : public QObject
{
public:
    FirstPaint()
        : QObject(QCoreApplication::instance())
    {
        QCoreApplication::instance()->installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && isListWithRows(watched->parent())) {
            QCoreApplication::instance()->removeEventFilter(this);
            QTimer::singleShot(0, this, &FirstPaint::tell); // after the paint
        }
        return false;
    }

private:
    static bool isListWithRows(const QObject *object)
    {
        const auto *list = qobject_cast<const QTableView *>(object);
        return list && list->model() && list->model()->rowCount() > 0;
    }
    void tell()
    {
        qCDebug(startLog, "first list painted");
        deleteLater();
    }
};

} // namespace

void logFirstPaint()
{
    if (startLog().isDebugEnabled())
        new FirstPaint;
}

} // namespace ebtq::shell
