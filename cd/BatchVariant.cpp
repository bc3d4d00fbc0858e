// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cd/BatchVariant.h"

#include "core/setting_keys.h"

#include <array>

namespace tonvale {

namespace {

using namespace std::string_view_literals;

constexpr std::array kWave{".wav"sv};
constexpr std::array kMpegAudio{".mp3"sv, ".mp2"sv};

} // namespace

constinit const BatchVariant kEncode{
    .name = "frmEncode",
    .caption = "Convert WAV to MP3",
    .makeCodec = makeBatchEncoder,
    .introduction =
        "To begin, mark the files you want to encode by selecting \"Add File(s) to List\" from the toolbar or \"Add\" "
        "from the Edit menu.  Once the desired files are in your list, choose \"Encode\" from the toolbar or File "
        "menu to process the files.",
    .convertCaption = "&Encode",
    .stopCaption = "&Stop Encoding",
    .convertToolTip = "Encode / Stop Encoding Toggle",
    .noticeKey = setting::kWavQualityNoticeDue,
    .addDialog = {"Select File(s) to encode:", "WAV Files (16-bit)|*.wav", setting::kAddWavDirectory},
    .folderTitle = "Select Folder for MP3 Output:",
    .converting = "Currently Encoding File:  ",
    .stopped = "Encode process has been stopped.",
    .finished = "The file list has been successfully encoded.",
    .nothingSelected = "No files are currently selected to remove from the encode list.  \r\n\r\n"
                       "If you wish to remove files from the list, select the files to remove before proceeding.",
    .failed = "An error occurred while attempting to encode file: "
              "Invalid, missing, or inappropriate source audio file.",
    .sources = kWave,
    .resultExtension = ".mp3",
    .refusedSource = RefusedSource::EndsInBox,
    .finishedIsSet = FinishedIsSet::BeforeListIsCleared,
};

constinit const BatchVariant kDecode{
    .name = "frmDecode",
    .caption = "Convert MP3 to WAV",
    .makeCodec = makeBatchDecoder,
    .introduction =
        "To begin, mark the files you want to decode by selecting \"Add File(s) to List\" from the toolbar or \"Add\" "
        "from the Edit menu.  Once the desired files are in your list, choose \"Decode\" from the toolbar or File "
        "menu to process the files.",
    .convertCaption = "&Decode",
    .stopCaption = "&Stop Decoding",
    .convertToolTip = "Decode / Stop Decoding Toggle",
    .noticeKey = nullptr,
    .addDialog = {"Select File(s) to Decode:", "MP3 Files|*.mp3;*.mp2", setting::kAddMp3Directory},
    .folderTitle = "Select Folder for WAV Output:",
    .converting = "Currently Decoding File:  ",
    .stopped = "Decode process has been stopped.",
    .finished = "The file list has been successfully decoded.",
    .nothingSelected = "No files are currently selected to remove from the decode list.  \r\n\r\n"
                       "If you wish to remove files from the list, select the files to remove before proceeding.",
    .failed = "An error occurred while attempting to decode file: "
              "Invalid, missing, or inappropriate source audio file.",
    .sources = kMpegAudio,
    .resultExtension = ".wav",
    .refusedSource = RefusedSource::GoesOn,
    .finishedIsSet = FinishedIsSet::AfterListIsCleared,
};

} // namespace tonvale
