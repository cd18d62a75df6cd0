// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELAUDIOMIXER_H
#define TAMOMOCK_ZELAUDIOMIXER_H

#include <tamo/export.h>
#include <tamomock/ZelEventProvider.h>

#include <zel/audiomixer.h>

namespace tamomock {

/**
 * The audio mixer, as the library calls it: one operation for each function of
 * `<zel/audiomixer.h>`, named after it without `audiomixer_`, after those of ZelEventProvider. What
 * a function takes, returns and does is said there; an operation of a substitute keeps to it as far
 * as the code under test looks.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelAudioMixer : public ZelEventProvider
{
public:
    ~ZelAudioMixer() override;

    virtual int setOutputLevel(audiomixer_output_t output, double level) = 0;
    virtual int setInputLevel(audiomixer_input_t input, double level) = 0;
    virtual int adjustOutputLevel(audiomixer_output_t output, double change) = 0;
    virtual int adjustInputLevel(audiomixer_input_t input, double change) = 0;
    virtual int setOutputMute(audiomixer_output_t output, bool mute) = 0;
    virtual int setInputMute(audiomixer_input_t input, bool mute) = 0;
    virtual int toggleOutputMute(audiomixer_output_t output) = 0;
    virtual int toggleInputMute(audiomixer_input_t input) = 0;
    virtual int getOutputLevel(audiomixer_output_t output, double* level) = 0;
    virtual int getInputLevel(audiomixer_input_t input, double* level) = 0;
    virtual int getOutputMute(audiomixer_output_t output, bool* mute) = 0;
    virtual int getInputMute(audiomixer_input_t input, bool* mute) = 0;
    virtual double eventGetOutputLevel(const zel_event_t* event, audiomixer_output_t output) = 0;
    virtual double eventGetInputLevel(const zel_event_t* event, audiomixer_input_t input) = 0;
    virtual bool eventGetOutputMute(const zel_event_t* event, audiomixer_output_t output) = 0;
    virtual bool eventGetInputMute(const zel_event_t* event, audiomixer_input_t input) = 0;
    virtual bool eventGetAvailable(const zel_event_t* event) = 0;
};

} // namespace tamomock

#endif
