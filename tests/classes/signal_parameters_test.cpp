#include "classes/signal_parameters.h"

#include "tests/classes/filler_fixture.h"

namespace testing_support {
namespace {

using SignalParameters = FillerFixture;

TEST_F(SignalParameters, SignalQualities) {
  const char* texts[] = {"Unknown", "Unknown",   "Out of range", "Poor",   "Fair",
                         "Good",    "Very Good", "Excellent",    "Unknown"};
  for (std::uint32_t code = 0; code < std::size(texts); ++code) {
    api.onGetSignalParameters = Gives<SignalParametersRecord>(
        RecordBytes<SignalParametersRecord>().At(0, code).At(4, -95).At(16, 3u).At(20, 4u).At(
            24, 0x80000000u));
    EXPECT_EQ(Fill(wifi::FillSignalParameters), S_OK);
    EXPECT_EQ(Puts(), (Lines{std::string("SignalQuality=text:") + texts[code],
                             "PercentMissedBeacons=number:3", "PercentTxRetries=number:4",
                             "CrcErrors=number:-2147483648", "RSSI=text:-95"}));
  }
}

}  // namespace
}  // namespace testing_support
