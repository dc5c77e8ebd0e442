#include "windows/controls/program_icon.h"

#include <QString>

/// The pictures stand in a library, which hands them over only when they are asked for by name.
/// The toolkit wants that said outside of every namespace.
static void TakePictures() {
    Q_INIT_RESOURCE(icon_of_qd_w8);
}

namespace qdw8 {

QIcon ProgramIcon() {
    TakePictures();
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QStringLiteral(":/qd-w8/%1.png").arg(side));
    }
    return icon;
}

} // namespace qdw8
