#pragma once

namespace kelutv::test {

/**
 * From the first call on, the failures of this test program are reported on the standard output that it has now, also
 * while a test has that descriptor taken over.
 *
 * A report among what a test captures would be part of its next comparison, whose report would hold it again, and so
 * on.
 */
void keepFailureReportsOutOfCaptures();

} // namespace kelutv::test
