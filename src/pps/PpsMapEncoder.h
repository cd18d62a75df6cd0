// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PPS_PPSMAPENCODER_H
#define TAMO_PPS_PPSMAPENCODER_H

#include "Utf8Buffer.h"

#include <QtCore/QByteArray>
#include <QtCore/QVariant>

#include <pps/encoder.h>

namespace tamo {

/** Turns one map into PPS text. Its functions throw tamo::Exception for what has no PPS text. */
class PpsMapEncoder
{
public:
    PpsMapEncoder();
    ~PpsMapEncoder();
    PpsMapEncoder(const PpsMapEncoder&) = delete;
    PpsMapEncoder& operator=(const PpsMapEncoder&) = delete;

    /** Adds a map's entries to the innermost open object. */
    void addMembers(const QVariantMap& map);

    /** The text of what was added. */
    QByteArray text();

private:
    void addValue(const char* name, const QVariant& value);
    void addObject(const char* name, const QVariantMap& map);
    void addArray(const char* name, const QVariantList& list);

    pps_encoder_t m_encoder;
    // The encoder copies what it is given, so one buffer for names and one for strings serve all.
    Utf8Buffer m_name;
    Utf8Buffer m_string;
};

} // namespace tamo

#endif
