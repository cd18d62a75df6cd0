/* SPDX-License-Identifier: Apache-2.0 */
/**
 * @file
 * What the device is. The functions read `/pps/services/deviceinfo/data` and `.../identity`. They
 * may be called from any thread, initialised or not, and have no events.
 */
#ifndef ZEL_DEVICEINFO_H
#define ZEL_DEVICEINFO_H

#include <zel/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/** A device's common data. Zero-terminated UTF-8; an empty text is "unknown", and none is NULL. */
typedef struct deviceinfo_data
{
    const char* os_version;  /**< of the operating system, such as "1.2.0.34" */
    const char* device_name; /**< as its owner calls it */
    const char* model_name;  /**< as its maker calls it */
    const char* model_number;
} deviceinfo_data_t;

/** What makes a device different from every other one. Texts as in deviceinfo_data_t. */
typedef struct deviceinfo_identifying_data
{
    const char* serial_number;
    const char* hardware_id;
} deviceinfo_identifying_data_t;

/**
 * Reads the device's common data.
 *
 * @param data the record, to be freed with deviceinfo_free_data()
 *
 * Errors, after which `*data` is NULL: ENOENT (no service has published it); EBADMSG (what was
 * published is not a message of this kind); EINVAL; ENOMEM; and those of open() and read().
 */
ZEL_EXPORT int deviceinfo_get_data(deviceinfo_data_t** data);

/** Frees a record and sets the pointer to it to NULL. A NULL in either place is allowed. */
ZEL_EXPORT void deviceinfo_free_data(deviceinfo_data_t** data);

/**
 * Reads what identifies the device.
 *
 * @param data the record, to be freed with deviceinfo_free_identifying_data()
 *
 * Errors: as deviceinfo_get_data(); EACCES where the process may not know.
 */
ZEL_EXPORT int deviceinfo_get_identifying_data(deviceinfo_identifying_data_t** data);

/** Frees a record and sets the pointer to it to NULL. A NULL in either place is allowed. */
ZEL_EXPORT void deviceinfo_free_identifying_data(deviceinfo_identifying_data_t** data);

#ifdef __cplusplus
}
#endif

#endif
