#pragma once

#include <string>

struct stat;

namespace kelutv::trace {

/** The folder for what lives as short as a program: TMPDIR or `/tmp`, as an absolute path, since programs change their
 * folder. */
std::string temporaryFolder();

/**
 * The folder in which programs of one user meet who records them into this file: below TMPDIR, named after the user and
 * the file.
 */
std::string meetingPlaceOf(const struct stat& file);

/** Whether it is a folder that this user alone may use. */
bool isOwnFolder(const std::string& path);

/** The pipe in the folder. */
std::string pipeIn(const std::string& folder);

/** Whether somebody reads from the pipe. */
bool isServed(const std::string& pipe);

} // namespace kelutv::trace
