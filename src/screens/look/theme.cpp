#include "screens/look/theme.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace ebtq::look {

namespace {

struct NamedColour
{
    QStringView name;
    QColor Tokens::*colour;
};

/// How the style sheet below calls the colours: "@" and the name.
constexpr NamedColour namedColours[] = {
    {u"ink", &Tokens::ink},
    {u"muted", &Tokens::muted},
    {u"line", &Tokens::line},
    {u"border", &Tokens::border},
    {u"window", &Tokens::window},
    {u"card", &Tokens::card},
    {u"brand", &Tokens::brand},
    {u"onBrand", &Tokens::onBrand},
    {u"brandSoft", &Tokens::brandSoft},
    {u"header", &Tokens::header},
    {u"currentRow", &Tokens::currentRow},
    {u"zebra", &Tokens::zebra},
    {u"salePrice", &Tokens::salePrice},
    {u"rent", &Tokens::rent},
    {u"danger", &Tokens::danger},
    {u"navigation", &Tokens::navigation},
    {u"navigationInk", &Tokens::navigationInk},
    {u"navigationMuted", &Tokens::navigationMuted},
    {u"navigationCurrent", &Tokens::navigationCurrent},
    {u"refusal", &Tokens::refusal},
    {u"refusalInk", &Tokens::refusalInk},
    {u"failure", &Tokens::failure},
    {u"failureInk", &Tokens::failureInk},
};

const QString sheet = uR"(
QMainWindow, QDialog, QWidget[kind="page"] { background: @window; color: @ink; }
QWidget[kind="status"] { background: @card; border: none; border-top: 1px solid @line; }
QWidget[kind="strip"] { background: @card; border: none; }
QWidget[kind="bar"] { background: @card; border: none; border-bottom: 1px solid @line; }
QWidget[kind="tabPanel"] { background: @card; border: none; border-top: 1px solid @line; }
QWidget[kind="card"], QFrame[kind="card"] { background: @card; border: 1px solid @line; border-radius: 4px; }
QFrame[kind="panel"] { background: @card; border: 1px solid @brand; }
QFrame[kind="notice"] { background: @brandSoft; border: none; border-bottom: 1px solid @line; }
QFrame[kind="separator"] { background: @line; border: none; max-width: 1px; min-width: 1px; }

QLabel { background: transparent; color: @ink; }
QLabel:disabled { color: @muted; }
QLabel[kind="caption"], QLabel[kind="hint"] { color: @muted; }
QLabel[ink="warning"] { color: @danger; }
QLabel[kind="title"] { color: @brand; font-weight: bold; }
QLabel[kind="heading"] { color: @ink; font-size: 20px; font-weight: bold; }
QLabel[kind="error"] { color: @failureInk; background: @failure; border: 1px solid @danger; border-radius: 4px;
    padding: 6px 10px; }
QLabel[kind="state"] { background: @window; color: @ink; border-radius: 4px; padding: 3px 10px; }
QLabel[kind="state"][active="true"] { background: @brandSoft; color: @brand; font-weight: bold; }

QPushButton { background: @card; color: @ink; border: 1px solid @border; border-radius: 4px; padding: 5px 16px;
    min-height: 20px; }
QPushButton:hover { background: @brandSoft; }
QPushButton:pressed { background: @line; }
QPushButton:focus { border-color: @brand; }
QPushButton:disabled { color: @muted; background: @window; }
QPushButton[kind="primary"] { background: @brand; color: @onBrand; border-color: @brand; font-weight: bold; }
QPushButton[kind="primary"]:hover { border-color: @ink; }
QPushButton[kind="primary"]:focus { border: 2px solid @ink; padding: 4px 15px; }
QPushButton[kind="primary"]:disabled { background: @line; color: @muted; border-color: @line; }
QPushButton[kind="danger"] { color: @danger; border-color: @danger; }
QPushButton[kind="flat"] { background: transparent; border-color: transparent; color: @brand; padding: 5px 6px; }
QPushButton[kind="flat"]:focus { border-color: @brand; }
QPushButton[kind="flat"]:disabled { color: @muted; }

QToolBar { background: @card; border: none; border-bottom: 1px solid @line; spacing: 4px; padding: 4px 8px; }
QToolBar::separator { background: @line; width: 1px; margin: 6px 6px; }
QToolButton { background: transparent; color: @ink; border: 1px solid transparent; border-radius: 4px;
    padding: 5px 8px; }
QToolButton:hover { background: @brandSoft; }
QToolButton:pressed { background: @line; }
QToolButton:focus { border-color: @brand; }
QToolButton:checked { background: @brandSoft; color: @brand; font-weight: bold; }
QToolButton:disabled { color: @muted; }
QToolButton#MoreFilters { padding: 2px 8px; }
QToolButton[active="true"] { color: @brand; font-weight: bold; }
QToolButton#Session { color: @muted; padding-right: 22px; }
QToolButton#Session::menu-indicator { image: url(:/ebtq/images/chevron-down.svg); width: 14px; height: 14px;
    subcontrol-origin: padding; subcontrol-position: center right; right: 4px; }
QToolButton[kind="close"] { padding: 0; margin-left: 4px; border-radius: 3px; min-width: 16px; min-height: 16px; }

QLineEdit, QPlainTextEdit, QTextEdit, QComboBox { background: @card; color: @ink; border: 1px solid @border;
    border-radius: 4px; selection-background-color: @brand; selection-color: @onBrand; }
QLineEdit, QComboBox { padding: 2px 8px; min-height: 21px; }
QLineEdit:focus, QPlainTextEdit:focus, QTextEdit:focus, QComboBox:focus { border-color: @brand; }
QLineEdit:disabled, QLineEdit:read-only, QPlainTextEdit:disabled, QComboBox:disabled { background: @window;
    color: @ink; }
QPlainTextEdit[readOnly="true"] { background: @window; padding: 0 4px; }
QLineEdit:read-only { padding: 2px 6px; }
QLineEdit[kind="filter"] { padding: 2px 3px 2px 5px; }
QLineEdit[ink="sale"] { color: @salePrice; }
QLineEdit[ink="rent"] { color: @rent; }
QLineEdit[state="error"], QComboBox[state="error"] { border-color: @danger; }
QComboBox QLineEdit { border: none; background: transparent; padding: 0; min-height: 0; }
QComboBox::drop-down { border: none; width: 22px; subcontrol-origin: padding;
    subcontrol-position: center right; }
QComboBox::down-arrow { image: url(:/ebtq/images/chevron-down.svg); width: 16px; height: 16px; }
QComboBox QAbstractItemView { background: @card; color: @ink; border: 1px solid @border; outline: none;
    selection-background-color: @brandSoft; selection-color: @ink; }

QCheckBox, QRadioButton { background: transparent; color: @ink; spacing: 6px; border: 1px solid transparent;
    border-radius: 4px; padding: 2px; }
QCheckBox:focus, QRadioButton:focus { border-color: @brand; }
QCheckBox:disabled, QRadioButton:disabled { color: @muted; }
QCheckBox::indicator { width: 14px; height: 14px; border: 1px solid @muted; border-radius: 3px;
    background: @card; }
QCheckBox::indicator:hover { border-color: @brand; }
QCheckBox::indicator:checked { background: @navigationCurrent; border-color: @navigationCurrent;
    image: url(:/ebtq/images/tick.svg); }
QCheckBox::indicator:disabled { background: @window; border-color: @line; }
QCheckBox::indicator:checked:disabled { background: @muted; border-color: @muted; }
QRadioButton::indicator { width: 12px; height: 12px; border: 1px solid @muted; border-radius: 7px;
    background: @card; }
QRadioButton::indicator:checked { border: 4px solid @brand; width: 6px; height: 6px; }

QGroupBox { background: @card; border: 1px solid @line; border-radius: 4px; margin-top: 22px; padding: 8px; }
QGroupBox::title { subcontrol-origin: margin; left: 10px; top: 2px; color: @brand; }

QTableView, QTreeView, QListView { background: @card; color: @ink; alternate-background-color: @zebra;
    border: none; outline: none; gridline-color: @line; selection-background-color: @currentRow;
    selection-color: @ink; }
ebtq--FlexGridView { border-bottom: 2px solid @card; }
ebtq--FlexGridView:focus { border-bottom-color: @brand; }
QTreeView::item { padding: 3px 4px; }
QTreeView::item:disabled { color: @muted; }
QAbstractScrollArea::corner { background: @card; border: none; }
QHeaderView { background: @header; border: none; }
QHeaderView::section { background: @header; color: @ink; border: none; border-right: 1px solid @line;
    border-bottom: 1px solid @line; padding: 4px 6px; font-weight: bold; }
QTableCornerButton::section { background: @header; border: none; }

QTabBar { background: @card; border: none; }
QTabBar::tab { background: transparent; color: @muted; border: none; border-bottom: 2px solid transparent;
    padding: 7px 12px; }
QTabBar::tab:hover { color: @ink; background: @window; }
QTabBar::tab:selected { color: @brand; border-bottom-color: @brand; font-weight: bold; }
QTabBar::tab:focus { background: @brandSoft; }
QTabWidget::pane { border: none; border-top: 1px solid @line; background: @card; }

QMenuBar { background: @card; color: @ink; }
QMenuBar::item:selected { background: @brandSoft; }
QMenu { background: @card; color: @ink; border: 1px solid @border; padding: 4px; }
QMenu::item { padding: 5px 24px 5px 12px; border-radius: 3px; }
QMenu::item:selected { background: @brandSoft; }
QMenu::item:disabled { color: @muted; }
QMenu::separator { height: 1px; background: @line; margin: 4px 6px; }
QToolTip { background: @card; color: @ink; border: 1px solid @border; padding: 3px 6px; }

QScrollBar:vertical { background: transparent; width: 12px; margin: 0; }
QScrollBar:horizontal { background: transparent; height: 12px; margin: 0; }
QScrollBar::handle { background: @muted; border: 3px solid @card; border-radius: 6px; }
QScrollBar::handle:vertical { min-height: 28px; }
QScrollBar::handle:horizontal { min-width: 28px; }
QScrollBar::handle:hover { background: @brand; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; border: none; }
QScrollBar::add-page, QScrollBar::sub-page { background: @card; }
QPlainTextEdit[readOnly="true"] QScrollBar::handle { border-color: @window; }
QPlainTextEdit[readOnly="true"] QScrollBar::add-page, QPlainTextEdit[readOnly="true"] QScrollBar::sub-page {
    background: @window; }
QScrollArea { background: transparent; border: none; }
QSplitter::handle { background: @line; }
QSplitter::handle:vertical { background: @window; border-top: 1px solid @line; }
QProgressBar { background: @window; border: 1px solid @line; border-radius: 4px; text-align: center;
    color: @ink; }
QProgressBar::chunk { background: @brandSoft; }

QCalendarWidget { background: @card; }
QCalendarWidget QWidget#qt_calendar_navigationbar { background: @header; }
QCalendarWidget QToolButton { color: @ink; font-weight: bold; padding: 3px 8px; }
QCalendarWidget QToolButton#qt_calendar_prevmonth { qproperty-icon: none; qproperty-text: "‹"; }
QCalendarWidget QToolButton#qt_calendar_nextmonth { qproperty-icon: none; qproperty-text: "›"; }
QCalendarWidget QToolButton::menu-indicator { image: none; }
QCalendarWidget QAbstractItemView { background: @card; selection-background-color: @brand;
    selection-color: @onBrand; }

QStatusBar { background: @card; color: @ink; border-top: 1px solid @line; }
QStatusBar::item { border: none; }

QFrame[kind="message"] { border: none; border-bottom: 1px solid @line; }
QFrame[kind="message"][level="2"] { background: @refusal; border-left: 4px solid @refusalInk; }
QFrame[kind="message"][level="2"] QLabel { color: @refusalInk; }
QFrame[kind="message"][level="8"] { background: @failure; border-left: 4px solid @failureInk; }
QFrame[kind="message"][level="8"] QLabel { color: @failureInk; }

QWidget[kind="navigation"] { background: @navigation; }
QWidget[kind="navigation"] QScrollArea, QWidget[kind="navigation"] QScrollArea > QWidget > QWidget {
    background: @navigation; }
QLabel[kind="navTitle"] { color: #ffffff; font-size: 15px; font-weight: bold; padding: 8px 14px 8px 14px; }
QLabel[kind="navGroup"] { color: @navigationMuted; font-size: 12px; padding: 10px 12px 4px 12px; }
QToolButton[kind="nav"] { color: @navigationInk; text-align: left; padding: 6px 12px; border-radius: 5px; }
QToolButton[kind="nav"]:hover { background: rgba(255, 255, 255, 24); }
QToolButton[kind="nav"]:focus { border-color: @navigationMuted; }
QLabel[kind="curtain"] { color: @muted; background: @window; font-size: 20px; }
QLabel[kind="badge"] { background: @refusal; color: @refusalInk; border-radius: 7px; padding: 0 4px;
    font-size: 11px; }
QToolButton[kind="nav"]:checked { background: @navigationCurrent; color: #ffffff; font-weight: normal; }
)"_s;

} // namespace

QPalette palette(const Tokens &colours)
{
    QPalette result;
    const std::pair<QPalette::ColorRole, QColor> roles[] = {
        {QPalette::Window, colours.window},
        {QPalette::WindowText, colours.ink},
        {QPalette::Base, colours.card},
        {QPalette::AlternateBase, colours.zebra},
        {QPalette::Text, colours.ink},
        {QPalette::Button, colours.card},
        {QPalette::ButtonText, colours.ink},
        {QPalette::BrightText, colours.danger},
        {QPalette::ToolTipBase, colours.card},
        {QPalette::ToolTipText, colours.ink},
        {QPalette::Highlight, colours.brand},
        {QPalette::HighlightedText, colours.onBrand},
        {QPalette::Link, colours.brand},
        {QPalette::LinkVisited, colours.brand},
        {QPalette::PlaceholderText, colours.muted},
        {QPalette::Light, colours.card},
        {QPalette::Midlight, colours.zebra},
        {QPalette::Mid, colours.line},
        {QPalette::Dark, colours.muted},
        {QPalette::Shadow, colours.line},
    };
    for (const auto &[role, colour] : roles)
        result.setColor(role, colour);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        result.setColor(QPalette::Disabled, role, colours.muted);
    return result;
}

QString styleSheet(const Tokens &colours)
{
    QString result = sheet;
    for (const NamedColour &named : namedColours) {
        const QRegularExpression call(u'@' + named.name.toString() + u"\\b"_s);
        result.replace(call, (colours.*named.colour).name());
    }
    return result;
}

} // namespace ebtq::look
