#include "shell/session/screen_lock.h"

#include "shell/login_dialog.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QPointer>
#include <QScopedValueRollback>

#include <memory>
#include <vector>

namespace ebtq::shell {

namespace {

/// Lies over a window and grows with it.
class Curtain : public QLabel
{
public:
    explicit Curtain(QWidget &window)
        : QLabel(QStringLiteral("已锁定"), &window)
    {
        setObjectName(QStringLiteral("Curtain"));
        setProperty("kind", QStringLiteral("curtain"));
        setAlignment(Qt::AlignCenter);
        setAutoFillBackground(true);
        window.installEventFilter(this);
        cover(window);
        show();
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            cover(*parentWidget());
        return QLabel::eventFilter(watched, event);
    }

private:
    void cover(const QWidget &window)
    {
        setGeometry(window.rect());
        raise();
    }
};

bool isUse(QEvent::Type type)
{
    return type == QEvent::KeyPress || type == QEvent::MouseButtonPress || type == QEvent::MouseMove ||
           type == QEvent::Wheel;
}

std::vector<QPointer<QWidget>> coverWindows()
{
    std::vector<QPointer<QWidget>> curtains;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->isVisible())
            curtains.emplace_back(new Curtain(*window));
    }
    return curtains;
}

} // namespace

ScreenLock::ScreenLock(const QString &userName, const QString &place, std::chrono::milliseconds patience,
                       Check check)
    : m_userName(userName)
    , m_place(place)
    , m_check(std::move(check))
{
    m_idle.setSingleShot(true);
    m_idle.setInterval(patience);
    connect(&m_idle, &QTimer::timeout, this, &ScreenLock::lock);
    qApp->installEventFilter(this);
    if (patience.count() > 0)
        m_idle.start();
}

ScreenLock::~ScreenLock() = default;

bool ScreenLock::eventFilter(QObject *watched, QEvent *event)
{
    if (m_idle.isActive() && isUse(event->type()))
        m_idle.start();
    return QObject::eventFilter(watched, event);
}

void ScreenLock::lock()
{
    if (m_isLocked)
        return;
    const QScopedValueRollback locked(m_isLocked, true);
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    const std::vector<QPointer<QWidget>> curtains = coverWindows();
    LoginDialog dialog(m_userName, m_place, m_check, LoginDialog::Purpose::Unlock);
    dialog.exec();
    for (const QPointer<QWidget> &curtain : curtains)
        delete curtain;
    if (m_idle.interval() > 0)
        m_idle.start();
}

} // namespace ebtq::shell
