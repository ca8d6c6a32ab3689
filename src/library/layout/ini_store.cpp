#include "library/layout/ini_store.h"

#include "contracts/conversions.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringList>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

/// Far more than any layout takes; a file beyond it is something else.
constexpr qint64 largestFile = 4 * 1024 * 1024;

QString escaped(QString value)
{
    return value.replace(u'\\', u"\\\\"_s).replace(u'\n', u"\\n"_s).replace(u'\r', u"\\r"_s);
}

/// A backslash before any other character was written by hand and is kept.
QString unescaped(QStringView written)
{
    QString value;
    for (qsizetype at = 0; at < written.size(); ++at) {
        const QChar next = written[at] == u'\\' && at + 1 < written.size() ? written[at + 1] : QChar();
        const bool isEscape = next == u'\\' || next == u'n' || next == u'r';
        value += !isEscape ? written[at] : next == u'n' ? QChar(u'\n') : next == u'r' ? QChar(u'\r') : next;
        at += isEscape ? 1 : 0;
    }
    return value;
}

bool isComment(QStringView line)
{
    return line.startsWith(u';') || line.startsWith(u'#');
}

/// The file's text; nothing when it is there and could not be read.
std::optional<QString> fileContents(const QString &name)
{
    QFile file(name);
    if (!name.isEmpty() && file.open(QIODevice::ReadOnly)) {
        const QByteArray bytes = file.size() > largestFile ? QByteArray() : file.read(largestFile);
        if (file.error() != QFileDevice::NoError)
            return std::nullopt;
        return QString::fromUtf8(bytes.startsWith("\xEF\xBB\xBF") ? bytes.sliced(3) : bytes);
    }
    if (name.isEmpty() || !QFileInfo::exists(name))
        return QString();
    return std::nullopt;
}

} // namespace

bool IniStore::isUnreadable(const QString &file)
{
    return !fileContents(file);
}

void IniStore::setFileName(const QString &file)
{
    m_file = file;
    m_sections.clear();
    m_sectionOfName.clear();
    m_isChanged = false;
    const auto contents = fileContents(file);
    m_isUnread = !contents;
    read(contents.value_or(QString()));
}

void IniStore::read(const QString &text)
{
    Section *current = &sectionNamed(QString()); // comments may precede the first section
    const QStringList lines = text.split(u'\n');
    for (const QString &line : lines)
        current = readLine(line.endsWith(u'\r') ? line.chopped(1) : line, current);
}

IniStore::Section *IniStore::readLine(const QString &line, Section *current)
{
    if (const qsizetype end = line.lastIndexOf(u']'); line.startsWith(u'[') && end > 0)
        return &sectionNamed(line.mid(1, end - 1).trimmed());
    if (isComment(line)) {
        current->lines.push_back({{}, line});
        return current;
    }
    const qsizetype sign = line.indexOf(u'=');
    const QString key = line.left(std::max<qsizetype>(sign, 0)).trimmed();
    if (!key.isEmpty() && !current->lineOfKey.contains(key.toCaseFolded())) {
        current->lineOfKey.insert(key.toCaseFolded(), current->lines.size());
        current->lines.push_back({key, unescaped(QStringView(line).mid(sign + 1))});
    }
    return current;
}

IniStore::Section &IniStore::sectionNamed(const QString &name)
{
    const QString folded = name.toCaseFolded();
    const auto found = m_sectionOfName.constFind(folded);
    if (found != m_sectionOfName.constEnd())
        return m_sections[*found];
    m_sectionOfName.insert(folded, m_sections.size());
    m_sections.push_back({name, {}, {}});
    return m_sections.back();
}

const QString *IniStore::find(const QString &section, const QString &key) const
{
    const auto found = m_sectionOfName.constFind(section.toCaseFolded());
    if (found == m_sectionOfName.constEnd())
        return nullptr;
    const Section &named = m_sections[*found];
    const auto line = named.lineOfKey.constFind(key.toCaseFolded());
    return line == named.lineOfKey.constEnd() ? nullptr : &named.lines[*line].value;
}

bool IniStore::contains(const QString &section, const QString &key) const
{
    return find(section, key);
}

QString IniStore::GetString(const QString &section, const QString &key, const QString &otherwise) const
{
    const QString *value = find(section, key);
    return value ? *value : otherwise;
}

bool IniStore::GetBool(const QString &section, const QString &key, bool otherwise) const
{
    const QString *value = find(section, key);
    if (!value)
        return otherwise;
    return Val(*value) != 0 || value->trimmed().compare(u"true", Qt::CaseInsensitive) == 0;
}

int IniStore::GetInt(const QString &section, const QString &key, int otherwise, int &out) const
{
    const QString *value = find(section, key);
    out = value ? WholePart(Val(*value)) : otherwise;
    return out;
}

int IniStore::GetInt(const QString &section, const QString &key, int otherwise) const
{
    int value = 0;
    return GetInt(section, key, otherwise, value);
}

void IniStore::SetString(const QString &section, const QString &key, const QString &value)
{
    Section &named = sectionNamed(section);
    const auto line = named.lineOfKey.constFind(key.toCaseFolded());
    if (line == named.lineOfKey.constEnd()) {
        named.lineOfKey.insert(key.toCaseFolded(), named.lines.size());
        named.lines.push_back({key, value});
    } else if (QString &present = named.lines[*line].value; present != value) {
        present = value;
    } else {
        return;
    }
    m_isChanged = true;
}

void IniStore::SetBool(const QString &section, const QString &key, bool value)
{
    SetInt(section, key, value ? 1 : 0);
}

void IniStore::SetInt(const QString &section, const QString &key, int value)
{
    SetString(section, key, QString::number(value));
}

void IniStore::removeSection(const QString &section)
{
    const auto found = m_sectionOfName.constFind(section.toCaseFolded());
    if (found == m_sectionOfName.constEnd() || m_sections[*found].lines.empty())
        return;
    m_sections[*found].lines.clear();
    m_sections[*found].lineOfKey.clear();
    m_isChanged = true;
}

QByteArray IniStore::text() const
{
    QString text;
    for (const Section &section : m_sections) {
        if (section.lines.empty())
            continue;
        if (!section.name.isEmpty())
            text += u'[' + section.name + u"]\n"_s;
        for (const Line &line : section.lines)
            text += (line.key.isEmpty() ? line.value : line.key + u'=' + escaped(line.value)) + u'\n';
    }
    return text.toUtf8();
}

bool IniStore::save()
{
    if (!m_isChanged)
        return true;
    if (m_file.isEmpty() || m_isUnread)
        return false;
    QSaveFile file(m_file);
    const QByteArray contents = text();
    m_isChanged =
        !(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size() && file.commit());
    return !m_isChanged;
}

} // namespace ebtq
