#pragma once

#include "contracts/host_contracts.h"
#include "database/connection.h"
#include "screens/look/look.h"
#include "shell/tour/person.h"

#include <QString>
#include <QStringList>

namespace ebtq::shell {

struct TourSettings
{
    QString folder;             ///< made when missing
    db::Connection &connection; ///< source of the expected values
    HostApp &app;               ///< whose pickers are shown
};

/// A running tour: what its steps act on, and where they put pictures and notes.
class Tour
{
public:
    Tour(QWidget &window, const TourSettings &settings);

    [[nodiscard]] Person &person() { return m_person; }
    [[nodiscard]] db::Connection &connection() { return m_settings.connection; }
    /// Where the pictures go, as a path that does not depend on the working folder.
    [[nodiscard]] QString folder() const;
    [[nodiscard]] HostApp &app() { return m_settings.app; }
    /// Begins a step: its number stands in front of its pictures.
    void begin(const QString &name);
    /// Writes a picture of what is on the screen now, and throws when a word on it is seen to be wrong.
    void takePicture(const QString &name);
    /// The same, whatever is on it.
    void savePicture(const QString &name);
    void note(const QString &line);
    /// Throws Failure with `what` unless the condition holds.
    static void expect(bool holds, const QString &what);
    /// Writes the notes into tour.txt.
    void writeNotes() const;

    /// What a step keeps for a later one.
    QString district;
    QString building;
    const look::Scheme schemeAtStart = look::scheme();

private:
    void checkWords();

    TourSettings m_settings;
    Person m_person;
    int m_step = 0;
    QStringList m_notes;
};

/// Walks through the steps with `window`, which has its first module open; 0 when everything was seen as
/// expected, else 1, with the reason on the standard error and in the notes.
[[nodiscard]] int runTour(QWidget &window, const TourSettings &settings);

} // namespace ebtq::shell
