#pragma once

#include "library/dictionaries/dictionary_form.h"

namespace ebtq {

/// A dictionary without levels: all its records stand below the root.
class FlatDictionary : public DictionaryForm
{
    Q_OBJECT

public:
    static constexpr StatementWords words{u"InSert Into ", u") Values (", u"UpDate ", u" set ", u" Where "};

    using DictionaryForm::DictionaryForm;

protected:
    bool fillTree() override;
    /// The root is one too, with the key 0: what is edited there is saved as a new record.
    [[nodiscard]] bool isRecord(const Node &) const override { return true; }
    [[nodiscard]] SqlText recordStatement(int id) const override;
    bool mayEdit() override;
    bool mayDelete() override { return mayEdit(); }
    [[nodiscard]] std::vector<SqlText> deleteStatements(int id) const override;
    [[nodiscard]] SaveReport saveReport() const override;
    QString parentKey() override { return rootKey(); }
    [[nodiscard]] QString recordKey(const QString &number) const override { return u'K' + number; }
};

} // namespace ebtq
