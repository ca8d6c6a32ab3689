# The precompiled headers: what many files of a kind include. A file still includes what it uses.
set(core_headers
    <algorithm> <array> <charconv> <cmath> <functional> <limits> <map> <memory> <optional> <set> <span> <stdexcept>
    <string> <string_view> <unordered_map> <utility> <variant> <vector>
    <QByteArray> <QCoreApplication> <QDate> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QJsonObject> <QList>
    <QObject> <QRegularExpression> <QScopeGuard> <QString> <QStringList> <QTemporaryDir> <QTimer> <QVariant>)
ebtq_precompiled(core_headers HEADERS ${core_headers} LINKS Qt6::Core)

if(EBTQ_WIDGETS)
    set(widget_headers ${core_headers}
        <QAbstractItemModel> <QApplication> <QBoxLayout> <QDialog> <QGridLayout> <QHeaderView> <QIcon> <QKeyEvent>
        <QLabel> <QLineEdit> <QMenu> <QPainter> <QPushButton> <QScreen> <QScrollBar> <QShortcut> <QStyle>
        <QTableView> <QToolButton>)
    ebtq_precompiled(widget_headers HEADERS ${widget_headers} LINKS Qt6::Widgets)
endif()

if(BUILD_TESTING)
    set(test_headers <gmock/gmock.h> <gtest/gtest.h>)
    ebtq_precompiled(test_headers HEADERS ${core_headers} ${test_headers} LINKS Qt6::Core GTest::gtest GTest::gmock)
    if(EBTQ_WIDGETS)
        ebtq_precompiled(widget_test_headers HEADERS ${widget_headers} ${test_headers}
            LINKS Qt6::Widgets GTest::gtest GTest::gmock)
    endif()
endif()
