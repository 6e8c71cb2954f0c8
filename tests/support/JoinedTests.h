#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

namespace kelutv::test {

/** A source of one of the test programs that are joined in one; a source of several is there once for each. */
struct JoinedSource {
    std::string program; ///< name of the program
    std::string path;    ///< from the root of the project
};

/**
 * The main function of joined test programs: runs the tests of those sources that are of the program by whose name it
 * was started, by the filter that is asked for.
 *
 * @return status to exit with; a failure also when there is no such program, or no such test
 */
int runJoinedTests(int argc, char** argv, std::initializer_list<JoinedSource> sources);

/** What addEnvironment does. */
void addEnvironmentOfSource(std::unique_ptr<::testing::Environment> environment, const char* source);

/**
 * Makes an environment part of the test program. Among joined programs it is set up only in those that its source is
 * of, and in all of them if that is of none.
 *
 * @return the environment, which stays until the program ends
 */
template <typename Environment>
Environment& addEnvironment(std::unique_ptr<Environment> environment, const char* source = __builtin_FILE()) {
    Environment& added = *environment;
    addEnvironmentOfSource(std::move(environment), source);
    return added;
}

} // namespace kelutv::test
