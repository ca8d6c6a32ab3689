#include "shell/tour/tour.h"

#include "contracts/host_contracts.h"
#include "shell/tour/caption_walk.h"
#include "shell/tour/tour_steps.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QWidget>

#include <iostream>

namespace ebtq::shell {

namespace {

constexpr QSize tourSize(1440, 840);

} // namespace

Tour::Tour(QWidget &window, const TourSettings &settings)
    : m_settings(settings)
    , m_person(window)
{
    if (!QDir().mkpath(settings.folder))
        throw Failure(QStringLiteral("无法建立文件夹：%1").arg(settings.folder));
}

QString Tour::folder() const
{
    return QDir(m_settings.folder).absolutePath();
}

void Tour::begin(const QString &name)
{
    ++m_step;
    note(QStringLiteral("%1 %2").arg(m_step, 2, 10, QLatin1Char('0')).arg(name));
}

void Tour::takePicture(const QString &name)
{
    savePicture(name);
    checkWords();
}

void Tour::savePicture(const QString &name)
{
    const QString file =
        QStringLiteral("%1/%2-%3.png").arg(m_settings.folder).arg(m_step, 2, 10, QLatin1Char('0')).arg(name);
    if (!m_person.picture().save(file))
        throw Failure(QStringLiteral("无法写入图片：%1").arg(file));
}

/// Of the window in front: what it covers was in front before. File dialogs are Qt's own.
void Tour::checkWords()
{
    QWidget *inFront = QApplication::activePopupWidget();
    if (!inFront)
        inFront = QApplication::activeModalWidget();
    if (qobject_cast<QFileDialog *>(inFront))
        return;
    const QStringList faults = captionFaults(inFront ? *inFront : m_person.window());
    expect(faults.isEmpty(), faults.join(QStringLiteral("，")));
}

void Tour::note(const QString &line)
{
    m_notes.append(line);
}

void Tour::expect(bool holds, const QString &what)
{
    if (!holds)
        throw Failure(QStringLiteral("所见与预期不符：%1").arg(what));
}

void Tour::writeNotes() const
{
    const QString name = m_settings.folder + QStringLiteral("/tour.txt");
    QFile file(name);
    const QByteArray text = m_notes.join(u'\n').toUtf8() + '\n';
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        throw Failure(QStringLiteral("无法写入文件：%1").arg(name));
}

int runTour(QWidget &window, const TourSettings &settings)
{
    window.resize(tourSize); // whatever the screen is, so that pictures can be compared
    Tour tour(window, settings);
    QString failure;
    try {
        for (const TourStep &step : tourSteps()) {
            tour.begin(step.name.toString());
            step.act(tour);
            step.look(tour);
            tour.takePicture(step.picture.toString());
        }
    } catch (const std::exception &reason) {
        failure = QString::fromUtf8(reason.what());
        tour.note(QStringLiteral("  失败：%1").arg(failure));
        tour.savePicture(QStringLiteral("failed"));
        std::cerr << failure.toStdString() << '\n';
    }
    tour.writeNotes();
    return failure.isEmpty() ? 0 : 1;
}

} // namespace ebtq::shell
