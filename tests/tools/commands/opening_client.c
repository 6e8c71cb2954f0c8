#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

/**
 * A program to be traced that is not linked with the client library but opens it: the first argument is its path, the
 * second says where its symbols are found, `local` or `global`. Sets the volume of the speaker to the length of that.
 */
int main(int count, char** arguments) {
    if (count != 3) {
        return 2;
    }
    const int scope = strcmp(arguments[2], "global") == 0 ? RTLD_GLOBAL : RTLD_LOCAL;
    void* const library = dlopen(arguments[1], RTLD_NOW | scope);
    if (library == NULL) {
        fprintf(stderr, "%s\n", dlerror());
        return 3;
    }
    int (*setVolume)(int, int) = NULL;
    void* const symbol = dlsym(library, "linux_tv_Audio_setVolume");
    memcpy(&setVolume, &symbol, sizeof setVolume);
    return setVolume == NULL ? 4 : setVolume(0, (int)strlen(arguments[2]));
}
