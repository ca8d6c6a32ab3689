#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

class QApplication;

/// What everything looks like: named colours, palette, style sheet and icons. The program and the component
/// library are linked apart, so what is in force is kept in the QApplication, where both see it.
namespace ebtq::look {

enum class Scheme { Light, Dark };

/// The named colours of a scheme. `muted` is for text on `card` only; elsewhere it is too faint to read.
struct Tokens
{
    QColor ink;
    QColor muted;
    QColor line;
    QColor border; ///< of what can be filled in or pressed
    QColor window;
    QColor card;
    QColor brand;
    QColor onBrand; ///< text on `brand`
    QColor brandSoft;
    QColor header;
    QColor currentRow;
    QColor zebra;
    QColor salePrice;
    QColor rent;
    QColor danger;
    QColor navigation;
    QColor navigationInk;
    QColor navigationMuted;
    QColor navigationCurrent;
    QColor refusal; ///< background of a message that the user can act on
    QColor refusalInk;
    QColor failure; ///< background of a message about something that broke
    QColor failureInk;
};

[[nodiscard]] const Tokens &tokens(Scheme scheme);
/// Those of the scheme in force.
[[nodiscard]] const Tokens &tokens();
[[nodiscard]] Scheme scheme();

/// Puts style, font, palette and style sheet in force; may be called again to change the scheme.
void apply(QApplication &application, Scheme scheme);

/// An icon by its Breeze name, drawn in a colour of the scheme in force at the time of painting, sharp at
/// every size. A name that is not in the list of src/screens/look/CMakeLists.txt gives an empty icon and a
/// warning.
[[nodiscard]] QIcon icon(const QString &breezeName, QColor Tokens::*ink = &Tokens::ink);

} // namespace ebtq::look
