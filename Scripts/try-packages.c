/* The road of a print filter that knows nothing of the module but its file and the names that it offers. */

#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>

static const char* const names[] = {"ProcessDrvPT",
                                    "CreatePTConverterClassPointer",
                                    "DestroyPTConverterClassPointer",
                                    "GetSizeOfPageMediaSize",
                                    "GetPageMediaSize",
                                    "GetSizeOfPageMediaType",
                                    "GetPageMediaType",
                                    "GetSizeOfPageInputBin",
                                    "GetPageInputBin",
                                    "GetSizeOfSimplexPageMode",
                                    "GetSimplexPageMode",
                                    "GetSizeOfDuplexPageMode",
                                    "GetDuplexPageMode"};
enum { count = sizeof names / sizeof *names };

typedef void* (*Create)(void);
typedef void (*Destroy)(void*);
typedef int32_t (*GetSize)(uint32_t*);

int main(void) {
    void* functions[count];
    uint32_t rows = 0;
    int at;
    void* module = dlopen("libdevicespecific.so.0", RTLD_NOW | RTLD_LOCAL);
    if (module == NULL) return fprintf(stderr, "%s\n", dlerror()), 1;
    for (at = 0; at < count; ++at)
        if ((functions[at] = dlsym(module, names[at])) == NULL) return fprintf(stderr, "%s\n", dlerror()), 1;
    ((Destroy)functions[2])(((Create)functions[1])());
    ((GetSize)functions[3])(&rows);
    if (rows == 0 || dlclose(module) != 0) return 1;
    printf("dlopen: %d functions, %u media sizes\n", (int)count, (unsigned)rows);
    return 0;
}
