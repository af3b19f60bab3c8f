// The clock that tests move, for scripts/run-windows32-tests: a library to preload into a 32-bit
// Wine. That Wine reads the time through system calls that libfaketime does not intercept. The
// library is built without the system's headers, because a 64-bit system may lack the headers for
// 32 bits. So it declares the functions that it uses.
//
// The file named by FAKETIME_TIMESTAMP_FILE contains the seconds by which the clock is moved, for
// example "+3600" or "-5". It is read each time the clock is read. If it cannot be read, the clock
// is not moved.

extern "C" {

char* getenv(const char* name);
int open(const char* path, int flags, ...);
int read(int descriptor, void* bytes, unsigned count);
int close(int descriptor);
int syscall(int number, ...);

// The layout of 64-bit times on 32-bit systems, for times beyond 2038.
struct Seconds64 {
    long long seconds;
    int fraction;  // nanoseconds or microseconds
    int padding;
};
static_assert(sizeof(Seconds64) == 16 && sizeof(void*) == 4);

int __clock_gettime64(int clock, Seconds64* time);
int __gettimeofday64(Seconds64* time, void* zone);
long long __time64(long long* time);
}

namespace {

constexpr int realTime = 0;
constexpr int realTimeCoarse = 5;
constexpr int systemCall = 403;  // clock_gettime64
constexpr int nanosecondsInMicrosecond = 1000;

long long Offset() {
    const char* path = getenv("FAKETIME_TIMESTAMP_FILE");
    const int file = path == nullptr ? -1 : open(path, 0);
    if (file < 0) {
        return 0;
    }
    char text[32];
    const int length = read(file, text, sizeof text);
    close(file);
    long long offset = 0;
    for (int i = 1; i < length && text[i] >= '0' && text[i] <= '9'; ++i) {
        offset = offset * 10 + (text[i] - '0');
    }
    return length > 0 && text[0] == '-' ? -offset : offset;
}

}  // namespace

int __clock_gettime64(int clock, Seconds64* time) {
    const int result = syscall(systemCall, clock, time);
    if (result == 0 && (clock == realTime || clock == realTimeCoarse)) {
        time->seconds += Offset();
    }
    return result;
}

int __gettimeofday64(Seconds64* time, void* /*zone*/) {
    const int result = __clock_gettime64(realTime, time);
    time->fraction /= nanosecondsInMicrosecond;
    return result;
}

long long __time64(long long* time) {
    Seconds64 now{};
    __clock_gettime64(realTime, &now);
    if (time != nullptr) {
        *time = now.seconds;
    }
    return now.seconds;
}
