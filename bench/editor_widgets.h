#pragma once

#include <QCoreApplication>

#include <memory>

namespace ebtq {
class FrmFx;
class frmKh;
} // namespace ebtq

namespace ebtq::bench {

/// One that can have widgets where this program is built with them.
[[nodiscard]] std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv);
/// Builds the editor's screen, shows it and takes it away again; nothing in a program without widgets.
void buildEditorWidgets(FrmFx &form);
void buildEditorWidgets(frmKh &form);

} // namespace ebtq::bench
