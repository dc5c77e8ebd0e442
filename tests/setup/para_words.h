#pragma once

#include "support/story.h"

namespace qdw8::test {

/// The words in which stories tell of the parameter window: a field is told by its control and its
/// axis, 1 for one that stands once; a list that is selected by number by its row, from 0.
StoryWords ParaWords();
StoryValues ParaValues();

} // namespace qdw8::test
