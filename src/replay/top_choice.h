// Which of several top-level windows with the same class and caption is the recorded one. A recording knows no more of
// it than its place, so the one that stands there is it; else the one in which it was found before in this run; else
// the only one. When that leaves several, none is taken: the wrong one would be worse. Never pumps.
#pragma once

#include <optional>
#include <string>

#include "platform/types.h"
#include "replay/search_listener.h"
#include "replay/window_match.h"

// 0 when there is none of this class and caption (live texts, exact), or more than one and nothing to tell them by:
// then `several` is set. Hidden windows count only when none is shown. A listener is told of each window of the class,
// and of others with the caption.
platform::WindowHandle ChooseTop(const std::string& className, const std::string& caption, const WantedChain& wanted,
                                 bool& several, HeardBy listener = nullptr);

// Whether ChooseTop would take the window at the recorded depth of `live`, which has the right class and caption. None
// is as good as any.
bool IsTheTop(LiveChain& live, const WantedChain& wanted);

bool IsTopLevel(platform::WindowHandle window);

// Notes that the top-level window of `wanted` was found in this one, and how it stood when it had just been put in
// place. (Not how it stands now: somebody may have moved it since.)
void Meet(platform::WindowHandle window, const WantedChain& wanted,
          const std::optional<platform::WindowPlacement>& placed);

// Whether the top-level window `window`, which stands as `standing`, begins at its recorded place, neither minimised
// nor maximised unless it was, or stands as it did when it was last put there.
bool IsInPlace(platform::WindowHandle window, const platform::WindowPlacement& standing, const WantedChain& wanted);

// The same beginning, and both or neither minimised or maximised. Another size alone leaves what lies at a recorded
// place where it is.
bool StandsAs(const platform::WindowPlacement& a, const platform::WindowPlacement& b);

enum class ShowState { Normal, Minimised, Maximised };
ShowState ShowStateOf(const platform::WindowPlacement& placement);
