#include "support/scripted_desktop.h"

#include "archive/one_file_archive.h"

#include <gtest/gtest.h>

namespace ebtq::test {

ScriptedDesktop::~ScriptedDesktop()
{
    EXPECT_EQ(m_answers.size() + m_choices.size() + m_inputs.size() + m_files.size() + m_forms.size() +
                  m_items.size(),
              0)
        << "scripted, but never asked for";
    EXPECT_EQ(m_waiting, 0) << "the wait cursor was left on";
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

bool ScriptedDesktop::openDialog(FileDialog &dialog)
{
    const QString &place = dialog.file.isEmpty() ? dialog.initialDir : dialog.file;
    const QString chosen = take(m_files, dialog.title + u'|' + place, QString());
    if (chosen.isEmpty())
        return false;
    dialog.file = chosen;
    dialog.fileTitle = chosen.mid(chosen.lastIndexOf(u'/') + 1);
    return true;
}

QString ScriptedDesktop::popUpMenu(const QList<MenuItem> &items)
{
    QStringList texts;
    QStringList enabled{QString()};
    for (const MenuItem &item : items) {
        texts += (item.isEnabled ? QString() : u"-"_qs) + item.text;
        enabled += item.isEnabled ? item.key : QString();
    }
    const QString chosen = take(m_items, texts.join(u'|'), QString());
    EXPECT_TRUE(enabled.contains(chosen)) << "an item that the menu has not";
    return chosen;
}

void ScriptedDesktop::showModal(QObject &form)
{
    const auto nothing = std::function<void(QObject &)>([](QObject &) {});
    take(m_forms, form.objectName(), nothing)(form);
}

int ScriptedDesktop::shellExecute(const QString &verb, const QString &file, const QString &parameters,
                                  const QString &folder, int showCmd)
{
    const bool hasMore = !parameters.isEmpty() || !folder.isEmpty();
    m_openedFiles.append(verb + u'|' + file + (hasMore ? u'|' + parameters + u'|' + folder : QString()) +
                         u'|' + QString::number(showCmd));
    return m_shellResult;
}

void ScriptedDesktop::setWaitCursor(bool on)
{
    m_waiting += on ? 1 : -1;
    m_waits += on ? 1 : 0;
    EXPECT_GE(m_waiting, 0) << "a wait cursor was taken away that nobody had shown";
}

QString ScriptedDesktop::tempFolder()
{
    return m_folder.path();
}

QString ScriptedDesktop::tempPath(const QString &name, const QString &owner)
{
    return m_folder.pathFor(name, owner);
}

QString ScriptedDesktop::makeTempFile(const QString &prefix)
{
    return m_folder.makeFile(prefix);
}

bool ScriptedDesktop::pack(const QString &file, const QString &archive)
{
    if (m_packs)
        archive::pack(file, archive);
    return m_packs;
}

void ScriptedDesktop::unpack(const QString &archive, QIODevice &to, qint64 size)
{
    archive::unpack(archive, to, size);
}

QByteArray ScriptedDesktop::newGuidBytes()
{
    return m_makesKeys ? QByteArray(15, '\0') + QByteArray(1, ++m_lastGuid) : QByteArray();
}

} // namespace ebtq::test
