// Preloaded into a program, it runs a command of INTERFERE_COMMAND at one moment of it, as if another program did so:
//
//   INTERFERE_AT=change N   before the Nth request over netlink that changes a link
//   INTERFERE_AT=open NAME  before the first file of this name is opened
//
// So what happens to bonds in the middle of a read or of an edit does not depend on luck.
#include <dlfcn.h>
#include <fcntl.h>
#include <linux/rtnetlink.h>
#include <stdarg.h>
#include <stdlib.h>
#include <string.h>
#include <sys/socket.h>

static int is_done;

static void interfere(void) {
  is_done = 1;
  const char* command = getenv("INTERFERE_COMMAND");
  unsetenv("LD_PRELOAD");
  // NOLINTNEXTLINE(cert-env33-c): a command of a shell is what a check gives.
  if (command == NULL || system(command) != 0) {
    abort();
  }
}

static const char* argument_of(const char* moment) {
  const char* at = getenv("INTERFERE_AT");
  const size_t length = strlen(moment);
  return !is_done && at != NULL && strncmp(at, moment, length) == 0 && at[length] == ' ' ? at + length + 1 : NULL;
}

ssize_t send(int descriptor, const void* bytes, size_t size, int flags) {
  static long changes;
  const char* count = argument_of("change");
  const struct nlmsghdr* message = bytes;
  if (count != NULL && size >= sizeof(*message) && message->nlmsg_type == RTM_NEWLINK &&
      ++changes == strtol(count, NULL, 10)) {
    interfere();
  }
  ssize_t (*next)(int, const void*, size_t, int) = (ssize_t(*)(int, const void*, size_t, int))dlsym(RTLD_NEXT, "send");
  return next(descriptor, bytes, size, flags);
}

int open(const char* file, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): va_start() has just initialised it.
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  const char* name = argument_of("open");
  const char* slash = strrchr(file, '/');
  if (name != NULL && slash != NULL && strcmp(slash + 1, name) == 0) {
    interfere();
  }
  int (*next)(const char*, int, ...) = (int (*)(const char*, int, ...))dlsym(RTLD_NEXT, "open");
  return next(file, flags, mode);
}
