#pragma once

#include <QSize>
#include <QString>

#include <initializer_list>

namespace ebtq::shell {

class Tour;

/// What steps of several areas do and see alike.

/// The window has that size, and none of these widgets is cut by its edge.
void seeWhole(Tour &tour, const QSize &size, std::initializer_list<const char *> names);
/// Until a page with a list is in front.
void waitForList(Tour &tour, const QString &what);
[[nodiscard]] int rowsShown(Tour &tour, const QString &grid);
/// The open tab is the one with this caption.
void seeTab(Tour &tour, const QString &caption);
/// Goes down the list until the grid of the open tab has rows; `record` is what a row of the list is called.
void moveToRecordWith(Tour &tour, const QString &grid, const QString &record);

} // namespace ebtq::shell
