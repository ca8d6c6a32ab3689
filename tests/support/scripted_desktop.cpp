#include "support/scripted_desktop.h"

#include <QDir>
#include <QFile>
#include <QTemporaryFile>

#include <gtest/gtest.h>

namespace ebtq::test {

ScriptedDesktop::~ScriptedDesktop()
{
    EXPECT_EQ(m_answers.size() + m_choices.size() + m_inputs.size() + m_files.size() + m_forms.size(), 0)
        << "scripted, but never asked for";
    EXPECT_EQ(m_waiting, 0) << "the wait cursor was left on";
    for (const QString &path : std::as_const(m_tempFiles))
        QFile::remove(path);
}

template<class T> T ScriptedDesktop::take(QList<T> &script, const QString &question, T otherwise)
{
    m_asked.append(question);
    if (script.isEmpty()) {
        ADD_FAILURE() << "nobody scripted an answer to: " << question.toStdString();
        return otherwise;
    }
    return script.takeFirst();
}

Desktop::Answer ScriptedDesktop::messageBox(const QString &text, const QString &title, Icon icon,
                                            Buttons buttons)
{
    const QString marks[] = {{}, u"?"_qs, u"!"_qs, u"x"_qs};
    const Answer closed = buttons == Buttons::Ok ? Answer::Ok : Answer::No;
    const QString question = title + marks[static_cast<int>(icon)] + u'|' + text;
    const Answer answer = take(m_answers, question, closed);
    EXPECT_EQ(answer == Answer::Ok, buttons == Buttons::Ok) << "an answer that the box has not";
    return answer;
}

std::optional<int> ScriptedDesktop::choose(const QString &text, const QString &title,
                                           const QStringList &answers)
{
    const auto answer = take(m_choices, title + u'|' + text, std::optional<int>());
    EXPECT_LT(answer.value_or(-1), answers.size()) << "an answer that the box has not";
    return answer;
}

std::optional<QString> ScriptedDesktop::inputBox(const QString &prompt, const QString &title, const QString &)
{
    return take(m_inputs, title + u'|' + prompt, std::optional<QString>());
}

QString ScriptedDesktop::openDialog(const QString &title, const QString &folder, const QString &)
{
    return take(m_files, title + u'|' + folder, QString());
}

QString ScriptedDesktop::saveDialog(const QString &title, const QString &proposedPath, const QString &)
{
    return take(m_files, title + u'|' + proposedPath, QString());
}

void ScriptedDesktop::showModal(QObject &form)
{
    const auto nothing = std::function<void(QObject &)>([](QObject &) {});
    take(m_forms, form.objectName(), nothing)(form);
}

bool ScriptedDesktop::openFile(const QString &path)
{
    m_openedFiles.append(path);
    return QFile::exists(path);
}

void ScriptedDesktop::setWaitCursor(bool on)
{
    m_waiting += on ? 1 : -1;
    m_waits += on ? 1 : 0;
    EXPECT_GE(m_waiting, 0) << "a wait cursor was taken away that nobody had shown";
}

QString ScriptedDesktop::makeTempFile(const QString &prefix)
{
    QTemporaryFile file(QDir::temp().filePath(prefix + u"XXXXXX"_qs));
    file.setAutoRemove(false);
    if (!file.open())
        return {};
    m_tempFiles.append(file.fileName());
    return file.fileName();
}

QByteArray ScriptedDesktop::newGuidBytes()
{
    return m_makesKeys ? QByteArray(15, '\0') + QByteArray(1, ++m_lastGuid) : QByteArray();
}

} // namespace ebtq::test
