#pragma once

#include <QObject>
#include <QString>

namespace ebtq {

/// A control without a widget: what the rules of a module read and set, by name and number. A view binds to
/// its signals both ways and holds no rule. Property names are those that layout files and the host's
/// designer use.
class Control : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Name READ Name CONSTANT)
    Q_PROPERTY(int Index READ Index CONSTANT)
    Q_PROPERTY(QString TypeName READ TypeName CONSTANT)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled NOTIFY stateChanged)
    Q_PROPERTY(bool Visible READ Visible WRITE setVisible NOTIFY stateChanged)
    Q_PROPERTY(QString Tag READ Tag WRITE setTag)
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption NOTIFY stateChanged)
    Q_PROPERTY(QString ToolTipText READ ToolTipText WRITE setToolTipText NOTIFY stateChanged)

public:
    /// `index` is the number in a control array, -1 outside of one.
    Control(QString typeName, QString name, int index = -1);

    [[nodiscard]] const QString &TypeName() const { return m_typeName; }
    [[nodiscard]] const QString &Name() const { return m_name; }
    [[nodiscard]] int Index() const { return m_index; }

    [[nodiscard]] bool Enabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    [[nodiscard]] bool Visible() const { return m_visible; }
    void setVisible(bool visible);
    [[nodiscard]] const QString &Tag() const { return m_tag; }
    void setTag(const QString &tag) { m_tag = tag; }
    [[nodiscard]] const QString &Caption() const { return m_caption; }
    void setCaption(const QString &caption);
    [[nodiscard]] const QString &ToolTipText() const { return m_toolTipText; }
    void setToolTipText(const QString &text);

    /// False for a control that shows a row's data: it is no setting of the user, and what it shows, an owner
    /// among it, does not belong into a layout file.
    [[nodiscard]] bool isKept() const { return m_isKept; }
    void setKept(bool kept) { m_isKept = kept; }

    /// Asks the view to give this control the keyboard.
    void SetFocus() { Q_EMIT focusRequested(); }

Q_SIGNALS:
    /// Enabled, visible, caption or tool tip changed, or what a derived class adds to its look.
    void stateChanged();
    void focusRequested();

private:
    template<class T> void change(T &member, const T &value);

    QString m_typeName;
    QString m_name;
    int m_index;
    bool m_enabled = true;
    bool m_visible = true;
    bool m_isKept = true;
    QString m_tag;
    QString m_caption;
    QString m_toolTipText;
};

} // namespace ebtq
