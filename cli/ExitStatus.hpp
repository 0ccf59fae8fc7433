#pragma once

namespace tovarin {

// The exit statuses of tovarin-report, in both its forms.
enum class ExitStatus {
    Done = 0,         // a report or table was written (also after a warning or a note)
    NoResult = 1,     // the data gave no result: an unreadable file, a refused line, no low BIC
    Usage = 2,        // bad usage, or a COUNT the classic form refuses
    OutputFailed = 3, // the output could not be written (a full disk, a closed pipe)
};

} // namespace tovarin
