#pragma once

#include "component/component_library.h"
#include "contracts/host_contracts.h"

#include <QLineEdit>
#include <QStringList>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace ebtq::test {

/// A data-entry module with one field: notes what its host does with it.
class FormModule : public QObject, public IFormUI
{
    Q_OBJECT
    Q_INTERFACES(ebtq::IFormUI)
    Q_PROPERTY(bool Editing MEMBER isEditing NOTIFY editing)
    Q_PROPERTY(bool DragEnabled MEMBER isDragged)

public:
    explicit FormModule(QStringList &log)
        : m_log(log)
    {}

    bool saves = true;
    QString thrown; ///< by whatever ends the editing
    bool isEditing = false;
    bool isDirty = false;
    bool isDragged = false;

    void beginByItself() { edit(true); }

    bool IFormUI_Init(HostApp &, int, int) override { return note(u"Init"_qs); }
    bool IFormUI_Clear() override { return note(u"Clear"_qs); }
    bool IFormUI_FileNew() override { return edit(note(u"New"_qs)); }
    bool IFormUI_FileNewNext() override { return false; }
    bool IFormUI_FileEdit() override { return edit(note(u"Edit"_qs)); }
    bool IFormUI_FileDelete() override { return note(u"Delete"_qs); }
    bool IFormUI_FileSave() override { return note(u"Save"_qs) && fail() && saves && !edit(false); }
    bool IFormUI_FileCancel() override { return note(u"Cancel"_qs) && fail() && !edit(false); }
    bool IFormUI_Find(const QVariant &) override { return note(u"Find"_qs); }
    bool IFormUI_FindNext() override { return note(u"FindNext"_qs); }
    bool IFormUI_Filter(const QVariant &) override { return false; }
    bool IFormUI_Refresh() override { return note(u"Refresh"_qs); }
    bool IFormUI_RecordTop() override { return note(u"Top"_qs); }
    bool IFormUI_RecordPrevious() override { return note(u"Previous"_qs); }
    bool IFormUI_RecordNext() override { return note(u"Next"_qs); }
    bool IFormUI_RecordBottom() override { return note(u"Bottom"_qs); }
    bool IFormUI_Check() override { return false; }
    bool IFormUI_UnCheck() override { return false; }
    bool IFormUI_PrintPreview() override { return false; }
    bool IFormUI_DoPrint() override { return false; }
    bool IFormUI_PrintSetup() override { return false; }
    bool IFormUI_Help() override { return false; }
    bool IFormUI_DoSetStatus(const QString &, const QVariant &) override { return false; }
    int IFormUI_GetID() override { return 0; }
    bool IFormUI_CheckStatus(const QString &) override { return false; }
    QString IFormUI_ReturnPrintName() override { return {}; }
    bool IFormUI_IsDirty() override { return isDirty; }
    void IFormUI_DoGetFormStatus() override { note(u"GetStatus"_qs); }
    void IFormUI_DoSaveFormStatus() override { note(u"SaveStatus"_qs); }
    QVariant IFormUI_Attributes(const QVariant &) override { return {}; }

Q_SIGNALS:
    void editing(bool on);

private:
    bool note(const QString &what)
    {
        m_log << what;
        return true;
    }
    bool edit(bool on)
    {
        isDirty = false;
        isEditing = on;
        Q_EMIT editing(on);
        return on;
    }
    bool fail() const { return thrown.isEmpty() ? true : throw Failure(thrown); }

    QStringList &m_log;
};

/// A library with two data-entry modules; `module` is the one made last.
class FormLibrary : public ComponentLibrary
{
public:
    QStringList classNames() const override { return {u"EBTQ_S.PdmLpzd"_qs, u"EBTQ_S.PDMCq"_qs}; }
    std::unique_ptr<QObject> create(const QString &) override
    {
        auto made = std::make_unique<FormModule>(log);
        module = made.get();
        return made;
    }
    QWidget *createView(QObject &object, QWidget *parent) override
    {
        auto &form = static_cast<FormModule &>(object);
        auto *view = new QWidget(parent);
        auto *layout = new QVBoxLayout(view);
        auto *tree = new QLineEdit;
        auto *field = new QLineEdit;
        field->setObjectName(u"field"_qs);
        field->setEnabled(false);
        layout->addWidget(tree);
        layout->addWidget(field);
        view->setFocusProxy(tree);
        QObject::connect(field, &QLineEdit::textEdited, &form, [&form] { form.isDirty = true; });
        QObject::connect(&form, &FormModule::editing, field, [=](bool on) {
            tree->setEnabled(!on);
            field->setEnabled(on);
            field->clear();
            field->setFocus();
        });
        return view;
    }

    QStringList log;
    FormModule *module = nullptr;
};

} // namespace ebtq::test
