#include "print/print_reset.h"

#include "print/print_job.h"
#include "print/print_page.h"
#include "print/print_select.h"

namespace qdw8 {

void ResetPrint() {
    ResetPrintPage();
    ResetPrintJob();
    PrintSelect = PrintSelectForm{};
}

} // namespace qdw8
