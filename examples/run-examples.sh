#!/usr/bin/env bash
# Runs every example that was built in BUILD_EXAMPLES_DIR (default: build/examples) on generated
# inputs, writing into its out/ folder, and checks what can be checked: the DTMF decoder must
# print the dialled digits, the G.711 round trips must reach the law's signal-to-noise ratio,
# libsndfile must decode the A-law file to the same samples, the reverb and spectrogram must
# write their files, and the trellis-coded link must beat uncoded 16-QAM. Examples that were not
# built (libsndfile or stb missing) are reported as skipped. Exits non-zero when any example
# fails.
set -uo pipefail
dir=$(cd "${1:-build/examples}" && pwd)
out=$dir/out
mkdir -p "$out"
passed=0 failed=0 skipped=0
fail() { echo "FAILED: $*"; failed=$((failed + 1)); }
have() { [ -x "$dir/$1" ]; }
run() { echo "\$ ${*#$dir/}"; "$@"; }

if have veks_example; then
    run "$dir/veks_example" && passed=$((passed + 1)) || fail veks_example
fi

# The trellis-coded link must beat uncoded 16-QAM tenfold at 16 dB.
if have veks_trellis_modem; then
    log=$(run "$dir/veks_trellis_modem" 50000 16 16)
    echo "$log"
    if awk '$1 == "16.0" { ok = ($3 < $2 / 10) } END { exit !ok }' <<<"$log"; then
        passed=$((passed + 1))
    else
        fail "veks_trellis_modem: the coded bit-error rate is not a tenth of the uncoded one"
    fi
fi

if ! have veks_make_signals; then
    echo "skipped: the WAV examples (G.711, DTMF, reverb, spectrogram): libsndfile was not found"
    skipped=$((skipped + 4))
else
    run "$dir/veks_make_signals" "$out" || fail veks_make_signals

    # G.711: encode, decode (checked against libsndfile's decoder), transcode, round trips.
    log=$(run "$dir/veks_g711" encode alaw "$out/voice.wav" "$out/voice.alaw" &&
          run "$dir/veks_g711" decode alaw "$out/voice.alaw" "$out/voice-alaw.wav" &&
          run "$dir/veks_g711" transcode alaw "$out/voice.alaw" "$out/voice.mulaw" &&
          run "$dir/veks_g711" decode mulaw "$out/voice.mulaw" "$out/voice-mulaw.wav" &&
          run "$dir/veks_g711" roundtrip alaw "$out/voice.wav" &&
          run "$dir/veks_g711" roundtrip mulaw "$out/voice.wav")
    rc=$?
    echo "$log"
    samples=$(grep -o 'agrees on [0-9]* of [0-9]*' <<<"$log" | head -1)
    snr_a=$(sed -n 's/^A-law round trip.*SNR \([0-9.]*\) dB.*/\1/p' <<<"$log")
    snr_u=$(sed -n 's/^mu-law round trip.*SNR \([0-9.]*\) dB.*/\1/p' <<<"$log")
    if [ $rc -ne 0 ]; then
        fail veks_g711
    elif [ -z "$samples" ] || [ "$(awk '{print ($3 == $5)}' <<<"$samples")" != 1 ]; then
        fail "veks_g711: libsndfile decodes the A-law file differently ($samples)"
    elif ! awk -v a="$snr_a" -v u="$snr_u" 'BEGIN { exit !(a > 30 && u > 30) }'; then
        fail "veks_g711: round-trip SNR too low (A-law $snr_a dB, mu-law $snr_u dB)"
    else
        passed=$((passed + 1))
    fi

    # DTMF: the decoded digits must be the dialled ones.
    expected=$(sed -n 's/^dtmf.wav holds the digits //p' < <("$dir/veks_make_signals" "$out"))
    digits=$(run "$dir/veks_dtmf" "$out/dtmf.wav" | tail -1)
    echo "$digits"
    if [ -n "$expected" ] && [ "$digits" = "$expected" ]; then
        passed=$((passed + 1))
    else
        fail "veks_dtmf: decoded '$digits', dialled '$expected'"
    fi

    run "$dir/veks_reverb" "$out/clicks.wav" "$out/clicks-reverb.wav" 1.2 0.4 &&
        run "$dir/veks_reverb" "$out/voice.wav" "$out/voice-reverb.wav" 0.6 &&
        [ -s "$out/clicks-reverb.wav" ] && passed=$((passed + 1)) || fail veks_reverb

    if have veks_sonogram; then
        run "$dir/veks_sonogram" "$out/chirp.wav" "$out/chirp.png" &&
            run "$dir/veks_sonogram" "$out/voice.wav" "$out/voice.png" 9 &&
            run "$dir/veks_sonogram" "$out/clicks-reverb.wav" "$out/clicks-reverb.png" &&
            [ -s "$out/chirp.png" ] && passed=$((passed + 1)) || fail veks_sonogram
    else
        echo "skipped: veks_sonogram: stb was not found"
        skipped=$((skipped + 1))
    fi
fi

echo "examples: outputs in $out"
echo "examples: $passed passed, $failed failed, $skipped skipped"
[ $failed -eq 0 ]
