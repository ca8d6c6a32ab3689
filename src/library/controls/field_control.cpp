#include "library/controls/field_control.h"

#include "database/values/date_text.h"
#include "library/frame/inline_list.h"
#include "library/frame/null_conv.h"

namespace ebtq {

qzTxt_S::qzTxt_S(const QString &name, int index)
    : Control(QStringLiteral("qzTxt_S"), name, index)
{}

void qzTxt_S::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    Q_EMIT FieldChange();
}

template<class T> void qzTxt_S::changeLook(T &member, T value)
{
    if (member == value)
        return;
    member = value;
    Q_EMIT stateChanged();
}

void qzTxt_S::set_help_flag(bool on)
{
    changeLook(m_help_flag, on);
}

void qzTxt_S::set_help_menuflag(bool on)
{
    changeLook(m_help_menuflag, on);
}

void qzTxt_S::set_help_type(int type)
{
    changeLook(m_help_type, type);
}

void qzTxt_S::setAlignment(int alignment)
{
    changeLook(m_alignment, alignment);
}

void qzTxt_S::requestHelp(int left, int top)
{
    if (!m_help_flag || !Enabled())
        return;
    if (m_help_type == Custom) {
        QString text = m_text;
        QVariant value = m_value;
        Q_EMIT FieldHelp(left, top, text, value);
        setValue(value);
        setText(text);
        return;
    }
    const QString key = m_help_type == Calendar ? QStringLiteral("date") : m_help_code;
    Q_EMIT FieldGenericHelp(key, QVariant::fromValue<QObject *>(this), left, top);
}

bool qzTxt_S::check()
{
    if (m_text.isEmpty()) {
        m_value.clear();
        m_checkedText.clear();
        return true;
    }
    if (m_judge_type == JudgeNothing || m_judge_time == JudgeNever || m_text == m_checkedText)
        return true;
    QVariant value;
    QString text = m_text;
    if (!judge(value, text)) {
        Q_EMIT checkFailed(m_error_message);
        return false;
    }
    m_checkedText = text;
    setValue(value);
    setText(text);
    return true;
}

bool qzTxt_S::judge(QVariant &value, QString &text)
{
    if (m_judge_type == JudgeDate) {
        const auto date = parseDate(text);
        text = date ? regionalDate(*date) : text;
        value = text;
        return date.has_value();
    }
    if (m_judge_type == JudgeInlineList) {
        const auto entry = ebtq::InlineList(m_help_code).find(text);
        text = entry ? entry->text : text;
        value = entry ? entry->value : QString();
        return entry.has_value();
    }
    Q_EMIT FieldCheck(m_judge_base, m_text_field_code, m_text_field_name, value, text);
    return !NullConv::ToText(value).isEmpty();
}

} // namespace ebtq
