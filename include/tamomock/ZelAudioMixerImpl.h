// SPDX-License-Identifier: Apache-2.0
#ifndef TAMOMOCK_ZELAUDIOMIXERIMPL_H
#define TAMOMOCK_ZELAUDIOMIXERIMPL_H

#include <tamo/export.h>
#include <tamomock/ZelAudioMixer.h>

namespace tamomock {

/**
 * The default ZelAudioMixer: each operation calls the function that it is named after.
 *
 * @since 0.1
 */
class TAMO_EXPORT ZelAudioMixerImpl : public ZelAudioMixer
{
public:
    ~ZelAudioMixerImpl() override;

    int requestEvents(int flags) override;
    int getDomain() override;
    int setOutputLevel(audiomixer_output_t output, double level) override;
    int setInputLevel(audiomixer_input_t input, double level) override;
    int adjustOutputLevel(audiomixer_output_t output, double change) override;
    int adjustInputLevel(audiomixer_input_t input, double change) override;
    int setOutputMute(audiomixer_output_t output, bool mute) override;
    int setInputMute(audiomixer_input_t input, bool mute) override;
    int toggleOutputMute(audiomixer_output_t output) override;
    int toggleInputMute(audiomixer_input_t input) override;
    int getOutputLevel(audiomixer_output_t output, double* level) override;
    int getInputLevel(audiomixer_input_t input, double* level) override;
    int getOutputMute(audiomixer_output_t output, bool* mute) override;
    int getInputMute(audiomixer_input_t input, bool* mute) override;
    double eventGetOutputLevel(const zel_event_t* event, audiomixer_output_t output) override;
    double eventGetInputLevel(const zel_event_t* event, audiomixer_input_t input) override;
    bool eventGetOutputMute(const zel_event_t* event, audiomixer_output_t output) override;
    bool eventGetInputMute(const zel_event_t* event, audiomixer_input_t input) override;
    bool eventGetAvailable(const zel_event_t* event) override;
};

} // namespace tamomock

#endif
