#include "platform/qt/standard_texts.h"

namespace qdw8 {
namespace {

StandardTexts& Texts() {
    static StandardTexts texts;
    return texts;
}

} // namespace

const StandardTexts& TheStandardTexts() {
    return Texts();
}

void SetStandardTexts(const StandardTexts& texts) {
    Texts() = texts;
}

} // namespace qdw8
