/**
 * Compile-time checks of the records' layout.
 *
 * The records cross a binary interface, so a compiler switch that packs or
 * widens structures must break the build and not the receipts.
 */
#ifndef QUILON_RECORDS_LAYOUT_H_
#define QUILON_RECORDS_LAYOUT_H_

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#define QUILON_CHECK(name, condition) static_assert(condition, #name)
#else
#define QUILON_CHECK(name, condition) \
  typedef char quilon_check_##name[(condition) ? 1 : -1]
#endif

/** Fails the build unless `record` has `size` bytes. */
#define QUILON_SIZE(record, size) \
  QUILON_CHECK(size_of_##record, sizeof(record) == (size))

/** Fails the build unless `field` of `record` stands at byte `offset`. */
#define QUILON_OFFSET(record, field, offset) \
  QUILON_CHECK(offset_of_##record##_##field, \
               offsetof(record, field) == (offset))

#endif /* QUILON_RECORDS_LAYOUT_H_ */
