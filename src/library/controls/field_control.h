#pragma once

#include "library/controls/control.h"

#include <QDate>
#include <QVariant>

#include <optional>

namespace ebtq {

/// The field control of every screen: a caption to its left, a typed text, the hidden value that belongs to
/// it, a help button and a check of what was typed.
///
/// Help, by help_type: for HostList and InlineList the event FieldGenericHelp is raised with help_code as
/// key, for Calendar with the key "date"; for Custom the event FieldHelp, whose two by-reference values go
/// back into the field.
///
/// Check, on leaving a field into which a person typed or chose something since it was last accepted, unless
/// judge_time is JudgeNever: by judge_type a statement or a custom field (FieldCheck), the inline list of
/// help_code, a date or a number. An empty text passes and empties the value, and so do blanks alone where a
/// check would be made. With FieldCheck an empty value on return means no match. A failed check raises
/// checkFailed with error_message and the view keeps the focus. What code sets is accepted unchecked: a
/// loaded record is not looked up again because the focus passes by.
class qzTxt_S : public Control
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText NOTIFY FieldChange)
    Q_PROPERTY(QVariant Value READ Value WRITE setValue NOTIFY valueChanged)
    Q_PROPERTY(bool help_flag MEMBER m_help_flag NOTIFY stateChanged)
    Q_PROPERTY(bool help_menuflag MEMBER m_help_menuflag NOTIFY stateChanged)
    Q_PROPERTY(int help_type MEMBER m_help_type NOTIFY stateChanged)
    Q_PROPERTY(QString help_code MEMBER m_help_code)
    Q_PROPERTY(QString judge_base MEMBER m_judge_base)
    Q_PROPERTY(int judge_type MEMBER m_judge_type)
    Q_PROPERTY(int judge_time MEMBER m_judge_time)
    Q_PROPERTY(QString text_field_code MEMBER m_text_field_code)
    Q_PROPERTY(QString text_field_name MEMBER m_text_field_name)
    Q_PROPERTY(QString error_message MEMBER m_error_message)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked NOTIFY stateChanged)
    Q_PROPERTY(int Alignment MEMBER m_alignment NOTIFY stateChanged)

public:
    enum HelpType : int { HostList = 0, Calendar = 1, Custom = 2, InlineList = 3 };
    /// Those from 100 on are ours. By JudgeNumber a number as people type it becomes the one that `Val`
    /// reads; by JudgeLimit as well, and a text whose leading number is no integer is refused, while a text
    /// without a number passes: it sets no limit.
    enum JudgeType : int {
        JudgeNothing = 0,
        JudgeStatement = 1,
        JudgeInlineList = 3,
        JudgeDate = 7,
        JudgeNumber = 100,
        JudgeLimit = 101,
    };
    /// JudgeByScreen is on leaving too, but by FieldCheck alone, whatever the type of the check.
    enum JudgeTime : int { JudgeNever = 0, JudgeOnLeaving = 1, JudgeByScreen = 2 };
    enum TextAlignment : int { AlignLeft = 0, AlignRight = 1, AlignCentre = 2 };

    explicit qzTxt_S(const QString &name, int index = -1);

    [[nodiscard]] const QString &Text() const { return m_text; }
    /// Raises FieldChange when the text differs from the present one.
    void setText(const QString &text);
    [[nodiscard]] const QVariant &Value() const { return m_value; }
    void setValue(const QVariant &value);

    [[nodiscard]] bool help_flag() const { return m_help_flag; }
    void set_help_flag(bool on);
    [[nodiscard]] bool help_menuflag() const { return m_help_menuflag; }
    void set_help_menuflag(bool on);
    [[nodiscard]] int help_type() const { return m_help_type; }
    void set_help_type(int type);
    [[nodiscard]] const QString &help_code() const { return m_help_code; }
    void set_help_code(const QString &code) { m_help_code = code; }
    [[nodiscard]] const QString &judge_base() const { return m_judge_base; }
    void set_judge_base(const QString &base) { m_judge_base = base; }
    [[nodiscard]] int judge_type() const { return m_judge_type; }
    void set_judge_type(int type) { m_judge_type = type; }
    /// The day from which a typed date counts that does not say its year, or only how far away it is.
    void setToday(const QDate &today) { m_today = today; }
    [[nodiscard]] int judge_time() const { return m_judge_time; }
    void set_judge_time(int time) { m_judge_time = time; }
    [[nodiscard]] const QString &text_field_code() const { return m_text_field_code; }
    void set_text_field_code(const QString &column) { m_text_field_code = column; }
    [[nodiscard]] const QString &text_field_name() const { return m_text_field_name; }
    void set_text_field_name(const QString &column) { m_text_field_name = column; }
    [[nodiscard]] const QString &error_message() const { return m_error_message; }
    void set_error_message(const QString &message) { m_error_message = message; }
    /// A locked field shows its text and takes none; unlike a disabled one it can be read and copied.
    [[nodiscard]] bool Locked() const { return m_isLocked; }
    void setLocked(bool locked);
    [[nodiscard]] int Alignment() const { return m_alignment; }
    void setAlignment(int alignment);

    /// What a view calls when the help button, F4 or Alt+Down was pressed; the position is that of the
    /// field's lower left corner on the screen, in pixels. Nothing without help_flag.
    void requestHelp(int left, int top);
    /// What a view calls when a person changed the text; nothing for a locked field. The value of the former
    /// text is emptied at once: until the check has found the new one, nothing may be filtered or saved by
    /// the old.
    void type(const QString &text);
    /// A person typed since the text was last accepted.
    [[nodiscard]] bool isTyped() const { return m_beforeTyping.has_value(); }
    /// Brings text and value back that were there before the typing.
    void takeBack();
    /// What a view calls before the focus leaves. True when the focus may go.
    bool check();

Q_SIGNALS:
    void FieldChange();
    /// The value changed or was emptied: for a screen that keeps it in Tag as well.
    void valueChanged();
    void FieldHelp(int left, int top, QString &text, QVariant &value);
    void FieldCheck(const QString &base, const QString &valueField, const QString &textField, QVariant &value,
                    QString &text);
    void FieldGenericHelp(const QString &key, const QVariant &field, const QVariant &left,
                          const QVariant &top);
    void checkFailed(const QString &message);

private:
    template<class T> void changeLook(T &member, T value);
    void replaceValue(const QVariant &value);
    void help(int left, int top);
    [[nodiscard]] bool isJudged() const
    {
        return m_judge_time == JudgeByScreen || (m_judge_type != JudgeNothing && m_judge_time != JudgeNever);
    }
    [[nodiscard]] bool judgeByScreen(QVariant &value, QString &text);
    bool judge(QVariant &value, QString &text);
    [[nodiscard]] bool judgeAsNumber(QString &text) const;
    void accept();
    void accept(const QString &text, const QVariant &value);

    struct State
    {
        QString text;
        QVariant value;
        bool isOpen;
    };

    QString m_text;
    QVariant m_value;
    bool m_isOpen = false;   ///< typed or chosen, and not checked yet
    bool m_isTyping = false; ///< what the rules do about a typed letter does not accept it
    std::optional<State> m_beforeTyping;
    bool m_help_flag = false;
    bool m_help_menuflag = false;
    int m_help_type = HostList;
    QString m_help_code;
    QString m_judge_base;
    int m_judge_type = JudgeNothing;
    int m_judge_time = JudgeNever;
    QDate m_today;
    QString m_text_field_code;
    QString m_text_field_name;
    QString m_error_message;
    bool m_isLocked = false;
    int m_alignment = AlignLeft;
};

} // namespace ebtq
