#include "library/controls/field_control.h"

#include "contracts/conversions.h"
#include "contracts/inline_list.h"
#include "contracts/null_conv.h"
#include "database/values/date_text.h"

#include <QScopedValueRollback>

#include <cmath>

using namespace Qt::StringLiterals;

namespace ebtq {

qzTxt_S::qzTxt_S(const QString &name, int index)
    : Control(u"qzTxt_S"_s, name, index)
{}

void qzTxt_S::setText(const QString &text)
{
    if (m_text == text)
        return;
    if (!m_isTyping)
        accept();
    m_text = text;
    Q_EMIT FieldChange();
}

void qzTxt_S::setValue(const QVariant &value)
{
    if (!m_isTyping)
        accept();
    replaceValue(value);
}

void qzTxt_S::replaceValue(const QVariant &value)
{
    if (m_value == value)
        return;
    m_value = value;
    Q_EMIT valueChanged();
}

void qzTxt_S::accept()
{
    m_isOpen = false;
    m_beforeTyping.reset();
}

void qzTxt_S::accept(const QString &text, const QVariant &value)
{
    setValue(value);
    setText(text);
    accept();
}

void qzTxt_S::type(const QString &text)
{
    if (m_text == text || m_isLocked)
        return;
    if (!m_beforeTyping)
        m_beforeTyping = State{m_text, m_value, m_isOpen};
    const QScopedValueRollback typing(m_isTyping, true);
    m_isOpen = true;
    replaceValue({});
    setText(text);
}

void qzTxt_S::takeBack()
{
    if (!m_beforeTyping)
        return;
    const State before = *m_beforeTyping;
    setText(before.text);
    setValue(before.value); // after the text: a rule may empty the value with each change of the text
    m_isOpen = before.isOpen;
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

void qzTxt_S::setLocked(bool locked)
{
    changeLook(m_isLocked, locked);
}

void qzTxt_S::setAlignment(int alignment)
{
    changeLook(m_alignment, alignment);
}

void qzTxt_S::requestHelp(int left, int top)
{
    if (!m_help_flag || !Enabled() || m_isLocked)
        return;
    const QString text = m_text;
    const QVariant value = m_value;
    help(left, top);
    if (m_text != text || m_value != value)
        m_isOpen = true; // the check fills dependent fields, whether the text was typed or chosen
}

void qzTxt_S::help(int left, int top)
{
    if (m_help_type == Custom) {
        QString text = m_text;
        QVariant value = m_value;
        Q_EMIT FieldHelp(left, top, text, value);
        if (text != m_text || value != m_value)
            accept(text, value);
        return;
    }
    const QString key = m_help_type == Calendar ? u"date"_s : m_help_code;
    Q_EMIT FieldGenericHelp(key, QVariant::fromValue<QObject *>(this), left, top);
}

bool qzTxt_S::check()
{
    if (m_text.isEmpty() || (isJudged() && m_text.trimmed().isEmpty())) {
        if (m_isOpen)
            accept({}, {});
        return true;
    }
    if (!isJudged() || !m_isOpen) {
        accept();
        return true;
    }
    QVariant value;
    QString text = m_text;
    if (!judge(value, text)) {
        Q_EMIT checkFailed(m_error_message);
        return false;
    }
    // Typing empties the value, so a value means that it was chosen. Two employees may share a name: keep the
    // chosen one, not the first of that name.
    const bool isChosen = !m_value.toString().isEmpty() && text == m_text;
    accept(text, isChosen ? QVariant(m_value) : value);
    return true;
}

bool qzTxt_S::judgeAsNumber(QString &text) const
{
    constexpr double mostRows = 1E15;
    const auto number = TypedNumber(text);
    text = number.value_or(text);
    if (m_judge_type == JudgeNumber)
        return number.has_value();
    const double limit = Val(text);
    return limit == std::floor(limit) && limit <= mostRows;
}

bool qzTxt_S::judgeByScreen(QVariant &value, QString &text)
{
    Q_EMIT FieldCheck(m_judge_base, m_text_field_code, m_text_field_name, value, text);
    return !NullConv::ToText(value).isEmpty();
}

bool qzTxt_S::judge(QVariant &value, QString &text)
{
    if (m_judge_time == JudgeByScreen)
        return judgeByScreen(value, text);
    if (m_judge_type == JudgeDate) {
        const auto date = TypedDate(text, m_today);
        text = date ? regionalDate(*date) : text;
        value = text;
        return date.has_value();
    }
    if (m_judge_type == JudgeNumber || m_judge_type == JudgeLimit)
        return judgeAsNumber(text);
    if (m_judge_type == JudgeInlineList) {
        const auto entry = ebtq::InlineList(m_help_code).find(text);
        text = entry ? entry->text : text;
        value = entry ? entry->value : QString();
        return entry.has_value();
    }
    return judgeByScreen(value, text);
}

} // namespace ebtq
