#pragma once

#include "main_form.h"

#include <functional>

namespace qdw8::test {

/// Every window of the program, one after the other, each with data in it and with what it needs of
/// the rest; in the language of the run.
class EachWindow : public MainForm {
public:
    using Visit = std::function<void(const char* name, QWidget& window)>;

protected:
    EachWindow();
    /// A window is made, visited and gone before the next one comes. Windows that hold a state are
    /// visited in several. They are not shown, but for those that show themselves.
    static void visitAll(const Visit& visit);
};

} // namespace qdw8::test
