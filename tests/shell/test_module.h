#pragma once

#include "component/component_library.h"
#include "contracts/host_contracts.h"

#include <QDate>
#include <QStringList>

#include <gtest/gtest.h>

#include <functional>

namespace ebtq::test {

/// A list module without a list: notes what its host does with it and raises its events when told to.
class TestModule : public QObject, public IReportUI
{
    Q_OBJECT
    Q_INTERFACES(ebtq::IReportUI)

public:
    explicit TestModule(QStringList &log)
        : m_log(log)
    {}
    ~TestModule() override { m_log << u"module gone"_qs; }

    /// What a refresh does beside being noted.
    std::function<void()> duringRefresh = [] {};
    std::function<void()> duringRestore = [] {};
    bool isInitialised = true;

    bool IReportUI_Init(HostApp &, int moduleId) override
    {
        return note(u"Init %1"_qs.arg(moduleId)) && isInitialised;
    }
    bool IReportUI_Clear() override { return note(u"Clear"_qs); }
    bool IReportUI_Refresh() override
    {
        note(u"Refresh"_qs);
        duringRefresh();
        return true;
    }
    void IReportUI_DoGetFormStatus(const QString &file) override
    {
        layoutFile = file;
        note(u"DoGetFormStatus"_qs);
        duringRestore();
    }
    void IReportUI_DoSaveFormStatus(const QString &file) override
    {
        EXPECT_EQ(file, layoutFile);
        note(u"DoSaveFormStatus"_qs);
    }
    bool IReportUI_Find(const QVariant &) override { return false; }
    bool IReportUI_FindNext() override { return false; }
    bool IReportUI_Filter(const QVariant &) override { return false; }
    bool IReportUI_RecordTop() override { return false; }
    bool IReportUI_RecordPrevious() override { return false; }
    bool IReportUI_RecordNext() override { return false; }
    bool IReportUI_RecordBottom() override { return false; }
    bool IReportUI_PrintPreview() override { return false; }
    bool IReportUI_DoPrint() override { return false; }
    bool IReportUI_PrintSetup() override { return false; }
    bool IReportUI_Help() override { return false; }
    QString IReportUI_ReturnPrintName() override { return {}; }
    QVariant IReportUI_Attributes(const QVariant &) override { return {}; }
    QObject *IReportUI_oTable() override { return nullptr; }
    QVariant IReportUI_Parameters() override { return {}; }
    void IReportUI_Parameters(const ParameterList *) override {}

    QString layoutFile;

Q_SIGNALS:
    void Message(const QString &psMsg);
    void ErrMessage(const QString &psMsg, int plLevel, const QString &psTitle);
    void FormRefreshed();
    void RefreshGetGridStatus();
    void UnLoad(bool &pbReturn);

private:
    bool note(const QString &what)
    {
        m_log << what;
        return true;
    }

    QStringList &m_log;
};

/// A module that has one event, of another shape than the contract's, and no contract.
class OddModule : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void Message(const QDate &date);
};

/// A component library with the classes it is given: each makes a TestModule with a field and a button for a
/// view.
class TestLibrary : public ComponentLibrary
{
public:
    explicit TestLibrary(QStringList classNames)
        : m_classNames(std::move(classNames))
    {}

    QStringList classNames() const override { return m_classNames; }
    std::unique_ptr<QObject> create(const QString &className) override;
    QWidget *createView(QObject &module, QWidget *parent) override;

    /// What all modules did, in order.
    QStringList log;
    /// The module made last.
    TestModule *module = nullptr;
    bool hasViews = true;
    /// Applied to each new module.
    std::function<void(TestModule &)> prepare = [](TestModule &) {};

private:
    QStringList m_classNames;
};

} // namespace ebtq::test
