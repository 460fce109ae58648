// The station's journal, "chlNNN.jnl" beside its temporary copy: what a station has stored and not yet
// saved, so that a crash or a power cut loses no accepted reading. One line a stored value, flushed;
// each line ends in a check sum, so that a damaged journal is used up to the damage.
#pragma once

#include "core/kelp.hpp"

namespace kelp {

/// Appends what has changed since the last call. Call it after every event and every save. Begins with
/// the first reading, blank, standard, copro or remark of a station. Never throws: a disk that fails
/// leaves a warning on the status bar, and the next call writes everything anew to a new file.
void KeepJournal(Kelp& kelp);

/// The station just loaded has a journal: asks whether to restore it. After a Yes the values are back
/// in grid, table and boxes, and the run goes on at the next sample. True after a Yes.
bool OfferRestore(Kelp& kelp);

/// The station has been saved whole: its journal goes.
void EndJournal(Kelp& kelp);

}  // namespace kelp
