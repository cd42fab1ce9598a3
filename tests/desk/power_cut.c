/*
 * Ends a program at its n-th step, as kill -9 or as a power cut would; preload
 * it. Steps are what reaches the disk or the network: pwrite, fsync, fdatasync,
 * ftruncate and send.
 *
 *     CUT_AT=N        the step; without it nothing happens
 *     CUT_POWER=SEED  at a power cut what was written since the file's last
 * sync is lost, kept or half kept, as chance has it, and so is the step itself;
 * without it the program is just killed
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <signal.h>
#include <stdlib.h>
#include <string.h>
#include <sys/socket.h>
#include <unistd.h>

typedef struct Write {
  int file;
  off_t offset;
  size_t old_length; /* of what stood there */
  char* old_bytes;
} Write;

static Write unsynced[4096];
static size_t unsynced_count;
static long step;
static unsigned chance;

static ssize_t (*real_pwrite)(int, const void*, size_t, off_t);

static void* Real(const char* name) { return dlsym(RTLD_NEXT, name); }

static unsigned Roll(unsigned most) {
  chance = chance * 1103515245U + 12345U;
  return (chance >> 16U) % most;
}

/* Writes back what stood there, all of it or the second half. */
static void Lose(const Write* write) {
  const size_t kept = Roll(2) == 0 ? 0 : write->old_length / 2;
  if (kept < write->old_length) {
    real_pwrite(write->file, write->old_bytes + kept, write->old_length - kept,
                write->offset + (off_t)kept);
  }
}

static void Cut(void) {
  const char* power = getenv("CUT_POWER");
  if (power != NULL) {
    chance = (unsigned)strtoul(power, NULL, 10) + (unsigned)step;
    while (unsynced_count > 0) {
      --unsynced_count;
      if (Roll(3) != 0) {
        Lose(&unsynced[unsynced_count]);
      }
    }
  }
  kill(getpid(), SIGKILL);
}

/* Whether the step that begins is the one. */
static int IsLast(void) {
  const char* at = getenv("CUT_AT");
  return at != NULL && ++step == strtol(at, NULL, 10);
}

static void Remember(int file, size_t length, off_t offset) {
  if (getenv("CUT_POWER") == NULL ||
      unsynced_count == sizeof unsynced / sizeof unsynced[0]) {
    return;
  }
  /* Beyond the file's end stands nothing: zeros come back. */
  char* old = calloc(1, length);
  if (old != NULL && pread(file, old, length, offset) >= 0) {
    unsynced[unsynced_count++] = (Write){file, offset, length, old};
  }
}

static void Forget(int file) {
  size_t kept = 0;
  for (size_t i = 0; i < unsynced_count; ++i) {
    if (unsynced[i].file == file) {
      free(unsynced[i].old_bytes);
    } else {
      unsynced[kept++] = unsynced[i];
    }
  }
  unsynced_count = kept;
}

ssize_t pwrite(int file, const void* bytes, size_t length, off_t offset) {
  if (real_pwrite == NULL) {
    *(void**)&real_pwrite = Real("pwrite");
  }
  const int last = IsLast();
  Remember(file, length, offset);
  const ssize_t written = real_pwrite(file, bytes, length, offset);
  if (last) {
    Cut();
  }
  return written;
}

ssize_t pwrite64(int file, const void* bytes, size_t length, off_t offset) {
  return pwrite(file, bytes, length, offset);
}

/* At one that is cut off, nothing is on the disk yet. */
static int SyncBy(const char* name, int file) {
  int (*sync)(int) = NULL;
  *(void**)&sync = Real(name);
  if (IsLast()) {
    Cut();
  }
  Forget(file);
  return sync(file);
}

int fsync(int file) { return SyncBy("fsync", file); }
int fdatasync(int file) { return SyncBy("fdatasync", file); }

int ftruncate(int file, off_t length) {
  int (*truncate)(int, off_t) = NULL;
  *(void**)&truncate = Real("ftruncate");
  if (IsLast()) {
    Cut();
  }
  return truncate(file, length);
}

int ftruncate64(int file, off_t length) { return ftruncate(file, length); }

ssize_t send(int socket, const void* bytes, size_t length, int flags) {
  ssize_t (*real_send)(int, const void*, size_t, int) = NULL;
  *(void**)&real_send = Real("send");
  if (IsLast()) {
    Cut();
  }
  return real_send(socket, bytes, length, flags);
}
