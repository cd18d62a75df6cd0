// SPDX-License-Identifier: Apache-2.0
import Phone 1.0

Notification {
    body: "Two answers"
    ledColor: LedColor.Green
    textMode: TextMode.RichText
    duration: 60

    PromptChoice {
        label: "yes"
        metadata: "1"
    }
    PromptChoice {
        label: "no"
    }
}
