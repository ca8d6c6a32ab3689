#pragma once

#include <QObject>
#include <QString>

#include <vector>

/// How a list is printed: the host's print engine, got from HostPrintEnv::PrintContext by qobject_cast, and
/// what it reads of a list. The engine may come from another library than the list, so it sees the grid only
/// through an abstract class.
namespace ebtq {

/// What a person sees of a grid: its visible columns in the order of sight, its rows without the hidden ones.
/// Both are numbered from 0. Whoever reads it keeps to the grid's thread; a cell that is gone meanwhile reads
/// as empty.
class PrintedGrid
{
public:
    enum class Alignment { Left, Centre, Right };
    struct Column
    {
        QString caption;
        int width = 0;          ///< in pixels at 96 dots an inch
        bool isWidthSet = true; ///< by a person or a layout; else the column may fit its contents
        Alignment alignment = Alignment::Left;
        Alignment captionAlignment = Alignment::Centre;
    };
    /// Colour numbers, red in the lowest byte; 0 for the usual colour.
    struct CellLook
    {
        int backColor = 0;
        int foreColor = 0;
        bool isBold = false;
    };

    virtual ~PrintedGrid() = default;
    [[nodiscard]] virtual const std::vector<Column> &columns() const = 0;
    [[nodiscard]] virtual int rowCount() const = 0;
    [[nodiscard]] virtual QString text(int row, int column) const = 0;
    /// Name of the icon in a cell; empty for none.
    [[nodiscard]] virtual QString picture(int row, int column) const = 0;
    [[nodiscard]] virtual CellLook look(int row, int column) const = 0;
    /// A text in a row of sums that runs on into the empty cells beside it.
    [[nodiscard]] virtual bool isSumLabel(int row, int column) const = 0;
};

/// The host's print object. Both operations return when the person is done, with the text of the failure for
/// the list to report, empty when there was none; leaving a dialog is none.
class PrintObject
{
public:
    struct Job
    {
        QString file;     ///< of the print settings; written by the set-up, its folder exists
        QString title;    ///< a carriage return ends a line in both
        QString subtitle; ///< a tab stands for a wide gap
        const PrintedGrid &VSFlexGrid;
    };

    virtual ~PrintObject() = default;
    /// `bPrint` true prints, false previews.
    [[nodiscard]] virtual QString PrintOut(const Job &job, bool bPrint) = 0;
    /// Paper, margins and the like of this file.
    [[nodiscard]] virtual QString SetUp(const Job &job) = 0;
};

} // namespace ebtq

Q_DECLARE_INTERFACE(ebtq::PrintObject, "EBTQ_S.PrintObject")
