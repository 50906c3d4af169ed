// The exported layer of the c02 chapter, as far as tests need to see it:
// the mapping of the companion core's failure record to a report.
#pragma once
#include "frame/core_record.hpp"
#include "frame/report.hpp"

namespace zem::c02 {

// The leading coefficient of a cubic or quartic, as named in a report.
struct Leading {
  const char* name;        // "u"
  const char* constraint;  // "u != 0.0"
};

// Reports the end of c02akc or c02alc: errnum takes ifail first, then 0
// gives the success report, and a failure is looked up by the message
// number of the core's record (an unreadable record or an unknown number
// gives NE_INTERNAL_ERROR).
void report_companion(Call& call, int ifail, const char rec[core::kRecordLen],
                      const Leading& lead) noexcept;

}  // namespace zem::c02
