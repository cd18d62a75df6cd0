// SPDX-License-Identifier: Apache-2.0
// Drops the reports of races of which one access is Qt's or GLib's own: they are not built for
// ThreadSanitizer, which sees them allocate, free and copy, and does not see them lock. A
// suppression cannot say so: it would match any report with one of their frames anywhere in a
// stack, and an event loop is beneath every slot.
#include <dlfcn.h>

#include <initializer_list>
#include <string_view>

extern "C" int __tsan_get_report_data(void* report, const char** description, int* count,
                                      int* stackCount, int* accessCount, int* locationCount,
                                      int* mutexCount, int* threadCount, int* uniqueThreadCount,
                                      void** sleepTrace, unsigned long traceSize);
extern "C" int __tsan_get_report_mop(void* report, unsigned long index, int* thread, void** address,
                                     int* size, int* write, int* atomic, void** trace,
                                     unsigned long traceSize);

namespace {

std::string_view fileNameOf(const void* code)
{
    Dl_info info;
    if (!code || dladdr(code, &info) == 0 || !info.dli_fname)
        return {};
    const std::string_view path = info.dli_fname;
    return path.substr(path.rfind('/') + 1);
}

bool startsWithOneOf(std::string_view name, std::initializer_list<std::string_view> prefixes)
{
    for (const std::string_view prefix : prefixes) {
        if (name.substr(0, prefix.size()) == prefix)
            return true;
    }
    return false;
}

/** Whether an access with this stack, innermost first, is made by Qt or GLib: directly, or by
 * malloc() and the like on their behalf. */
bool isTheirs(void* const (&trace)[64])
{
    for (void* const code : trace) {
        const std::string_view file = fileNameOf(code);
        if (!startsWithOneOf(file, {"libtsan."}))
            return startsWithOneOf(
                file, {"libQt5Core.", "libQt5Test.", "libQt6Core.", "libQt6Test.", "libglib-2.0."});
    }
    return false;
}

} // namespace

namespace __tsan {

class ReportDesc;

// ThreadSanitizer's hook for programs: whether a report is suppressed.
bool OnReport(const ReportDesc* description, bool suppressed)
{
    void* const report = const_cast<ReportDesc*>(description);
    const char* kind = nullptr;
    int accesses = 0;
    int ignored = 0;
    void* sleep[1] = {};
    __tsan_get_report_data(report, &kind, &ignored, &ignored, &accesses, &ignored, &ignored,
                           &ignored, &ignored, sleep, 1);
    for (int i = 0; i < accesses; ++i) {
        void* trace[64] = {};
        void* address = nullptr;
        __tsan_get_report_mop(report, static_cast<unsigned long>(i), &ignored, &address, &ignored,
                              &ignored, &ignored, trace, 64);
        if (isTheirs(trace))
            return true;
    }
    return suppressed;
}

} // namespace __tsan
