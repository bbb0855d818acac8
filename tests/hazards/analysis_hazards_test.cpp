// Records that are analysed.
#include <cmath>
#include <limits>
#include <string>

#include "facade/analysis.h"
#include "flume_run.h"
#include "hazard.h"

namespace Testing {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

struct Request {
  std::vector<double> samples;
  double rate = 50.0;
  double stop = 40.0;
  std::size_t probes = 4;
  std::uint32_t kind = 2;
  double frequency = 0.5;
  double angle = 0.0;
  double spacing = 0.3;
};

std::string analysed(const Request& request) {
  Kelpbox::SiteFacade site;
  site.initialise(flume_site);
  Kelpbox::Analysis analysis(site);
  std::vector<std::uint32_t> series;
  for (std::size_t i = 0; i < request.probes; ++i) {
    series.push_back(
        analysis.add_series(params_of({{"rate", request.rate, "Hz"},
                                       {"x", 9.0 + request.spacing * static_cast<double>(i), "m"},
                                       {"y", 0.4, "m"}}),
                            request.samples));
  }
  const std::uint32_t set = analysis.create_set(
      params_of({{"start_time", 0.0, "s"}, {"stop_time", request.stop, "s"}}), series);
  Base::Params values;
  site.query(values);
  analysis.set(values);
  const std::uint32_t process = analysis.create_process(set, request.kind);
  Base::Params out;
  analysis.get_results(
      process, params_of({{"freq", request.frequency, "Hz"}, {"angle", request.angle, "rad"}}),
      out);
  return std::to_string(out.entries().size()) + " results";
}

std::vector<double> wave(std::size_t samples) {
  std::vector<double> record(samples);
  for (std::size_t i = 0; i < samples; ++i) {
    record[i] = -0.05 * std::cos(2.0 * std::acos(-1.0) * 0.5 * static_cast<double>(i) / 50.0);
  }
  return record;
}

Hazard row(const std::string& name, const std::function<Request()>& request,
           const std::string& expected) {
  return {name, [=] { return analysed(request()); }, expected};
}

Request constant(double value, std::uint32_t kind) {
  Request request{std::vector<double>(2000, value)};
  request.kind = kind;
  return request;
}
Request with(const std::function<void(Request&)>& change) {
  Request request{wave(2000)};
  change(request);
  return request;
}

const Rows rows = {
    row(
        "AConstantRecordInTime", [] { return constant(0.1, 0); },
        "Insufficient zero crossings in time series"),
    row(
        "AConstantRecordInFrequency", [] { return constant(0.1, 2); },
        "Too few independant probes to process"),
    row(
        "ARecordThatIsNoNumberInTime", [] { return constant(nan, 0); },
        "Insufficient zero crossings in time series"),
    row(
        "ARecordThatIsNoNumberInFrequency", [] { return constant(nan, 2); },
        "Too few independant probes to process"),
    row(
        "AnInfiniteRecordInTime", [] { return constant(infinity, 0); },
        "Insufficient zero crossings in time series"),
    row(
        "AnInfiniteRecordInFrequency", [] { return constant(infinity, 2); },
        "Too few independant probes to process"),
    row(
        "FourMillionSamplesInTime",
        [] {
          Request request{wave(4'000'000)};
          request.stop = 80'000.0;
          request.probes = 1;
          request.kind = 0;
          return request;
        },
        "1 results"),
    row(
        "TwoMillionSamplesInFrequency",
        [] {
          Request request{wave(500'000)};
          request.stop = 10'000.0;
          return request;
        },
        "6 results"),
    row(
        "APrimeNumberOfSamples",
        [] {
          Request request{wave(499'979)};
          request.stop = 499'979.0 / 50.0;
          return request;
        },
        "6 results"),
    row(
        "FiveThousandProbes",
        [] {
          Request request{wave(100)};
          request.stop = 2.0;
          request.probes = 5'000;
          request.spacing = 0.0001;
          return request;
        },
        "6 results"),
    row(
        "AHundredThousandRecords",
        [] {
          Request request{wave(2)};
          request.stop = 0.04;
          request.probes = 100'000;
          request.spacing = 0.0;
          request.kind = 1;
          return request;
        },
        "0 results"),
    row(
        "NoProbes", [] { return with([](Request& r) { r.probes = 0; }); },
        "At least two data sets must be provided for frequency analysis"),
    row(
        "NoSamples", [] { return with([](Request& r) { r.samples.clear(); }); }, "out of range 2"),
    row(
        "ProbesAtOnePlace", [] { return with([](Request& r) { r.spacing = 0.0; }); },
        "Too few independant probes to process"),
    row(
        "ProbesFarOutsideTheTank", [] { return with([](Request& r) { r.spacing = 1e300; }); },
        "Value x=1.5e+300 is outside dimensions of tank"),
    row(
        "ProbesAtNoPlace", [] { return with([](Request& r) { r.spacing = nan; }); },
        "Value x=nan is outside dimensions of tank"),
    row(
        "AWindowOf1e300Seconds", [] { return with([](Request& r) { r.stop = 1e300; }); },
        "Out of range"),
    row(
        "AWindowThatEndsBeforeItStarts", [] { return with([](Request& r) { r.stop = -1.0; }); },
        "out of range 2"),
    row(
        "AWindowThatIsNoNumber", [] { return with([](Request& r) { r.stop = nan; }); },
        "Out of range"),
    row(
        "ARateOfZero", [] { return with([](Request& r) { r.rate = 0.0; }); }, "Out of range"),
    row(
        "ANegativeRate", [] { return with([](Request& r) { r.rate = -50.0; }); }, "out of range 2"),
    row(
        "ARateOf1e300Hz", [] { return with([](Request& r) { r.rate = 1e300; }); }, "Out of range"),
    row(
        "AFrequencyOfZero", [] { return with([](Request& r) { r.frequency = 0.0; }); },
        "6 results"),
    row(
        "AFrequencyOf1e300Hz", [] { return with([](Request& r) { r.frequency = 1e300; }); },
        "6 results"),
    row(
        "ANegativeFrequency", [] { return with([](Request& r) { r.frequency = -0.5; }); },
        "6 results"),
    row(
        "AFrequencyThatIsNoNumber", [] { return with([](Request& r) { r.frequency = nan; }); },
        "6 results"),
    row(
        "AnAngleOf1e300", [] { return with([](Request& r) { r.angle = 1e300; }); }, "6 results"),
    row(
        "AKindThatIsNotThere", [] { return with([](Request& r) { r.kind = 4294967295U; }); },
        "Uncaught Exception in Experiment get_results"),
};

INSTANTIATE_TEST_SUITE_P(Analysis, HazardTest, testing::ValuesIn(rows), row_name);

}  // namespace
}  // namespace Testing
