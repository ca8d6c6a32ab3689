#pragma once

#include <QHash>
#include <QString>

#include <vector>

namespace ebtq {

/// A text file of sections and keys: "[section]", then lines of "key=value", in UTF-8. Names are compared
/// without regard to case; a value keeps its blanks, and its line ends are written as \n and \r. Comment
/// lines
/// (";" or "#") stay where an administrator put them.
///
/// Only save() can fail: a file that is missing, unreadable or malformed is read as far as possible. A file
/// that could not be read is not overwritten.
class IniStore
{
public:
    /// Whether a file is there that cannot be read at this moment.
    [[nodiscard]] static bool isUnreadable(const QString &file);

    /// Reads the file; must come first.
    void setFileName(const QString &file);

    [[nodiscard]] bool contains(const QString &section, const QString &key) const;
    /// The last argument of each is the result for a key that is absent.
    [[nodiscard]] QString GetString(const QString &section, const QString &key,
                                    const QString &otherwise) const;
    /// True for every number but 0, and for "true".
    [[nodiscard]] bool GetBool(const QString &section, const QString &key, bool otherwise) const;
    /// The leading number of the value, within the range of an int; also put into `out`.
    int GetInt(const QString &section, const QString &key, int otherwise, int &out) const;
    [[nodiscard]] int GetInt(const QString &section, const QString &key, int otherwise) const;

    void SetString(const QString &section, const QString &key, const QString &value);
    void SetBool(const QString &section, const QString &key, bool value);
    void SetInt(const QString &section, const QString &key, int value);
    void removeSection(const QString &section);

    /// Writes the file when something was changed: next to it under another name, then renamed, so that a
    /// crash leaves the old file or the new one. False when it could not be written, or is there and could
    /// not be read.
    [[nodiscard]] bool save();

private:
    struct Line
    {
        QString key; ///< empty for a comment, which is then the value
        QString value;
    };
    struct Section
    {
        QString name;
        std::vector<Line> lines;
        QHash<QString, size_t> lineOfKey; ///< by the key without case
    };

    void read(const QString &text);
    /// The section to which the next line belongs.
    Section *readLine(const QString &line, Section *current);
    [[nodiscard]] Section &sectionNamed(const QString &name);
    [[nodiscard]] const QString *find(const QString &section, const QString &key) const;
    [[nodiscard]] QByteArray text() const;

    QString m_file;
    std::vector<Section> m_sections;
    QHash<QString, size_t> m_sectionOfName;
    bool m_isChanged = false;
    bool m_isUnread = false; ///< the file could not be read, so it is not overwritten
};

} // namespace ebtq
