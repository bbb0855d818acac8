// tidelab.waves.Native: the site, its banks, and the values of items.
#include <filesystem>

#include "support/output.h"
#include "support/temp_dir.h"
#include "waves_fixture.h"

namespace {

using Testing::printed;
using Testing::WavesTest;

// U+1F30A as UTF-8, and as the virtual machine receives it.
const char* const wave = "\xF0\x9F\x8C\x8A";
const char* const wave_in_java = "\xED\xA0\xBC\xED\xBC\x8A";

class WavesItems : public WavesTest {
 protected:
  void SetUp() override {
    experiment = basin();
    make_run();
  }
  std::vector<std::string> site_texts(jlong tank) {
    return {Host::characters_of(waves.call(WAVES(siteName), tank)),
            Host::characters_of(waves.call(WAVES(siteText), tank))};
  }
  Thrown thrown_by_formulas(const std::string& text, jlong out) {
    Thrown thrown;
    output = printed([&] { thrown = thrown_in(WAVES(formulaParameters), bytes(text), out); });
    return thrown;
  }

  std::string output;  // of the last formulas
};

// The site.

TEST_F(WavesItems, TheSiteIsNamed) {
  const std::vector<std::string> texts = site_texts(experiment);
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0], "Basin two banks");
  EXPECT_EQ(texts[1].find("Hall::Basin::two banks#0x"), 0U);
}

TEST_F(WavesItems, NamesOfASiteMayHoldAnyCharacters) {
  const Testing::TempDir folder;
  std::filesystem::copy_file(TEST_ROOT "/exported/data/basin.txt", folder.file("site"));
  std::string script = folder.contents("site");
  for (const std::string name : {"Hall", "Basin", "west"}) {
    script.replace(script.find('"' + name + '"'), name.size() + 2, '"' + name + wave + '"');
  }
  const jlong tank = new_experiment();
  const std::string file = folder.write("site", script);
  printed([&] { waves.call(WAVES(initialise), tank, bytes(file)); });
  EXPECT_EQ(site_texts(tank)[0], std::string("Basin") + wave_in_java + " two banks");
  EXPECT_EQ(site_texts(tank)[1].find(std::string("Hall") + wave_in_java + "::Basin"), 0U);
  EXPECT_EQ(Host::characters_of(waves.call(WAVES(bank), tank, 0, params())),
            std::string("west") + wave_in_java);
}

TEST_F(WavesItems, ConstantsAndTunableValuesAreRead) {
  const jlong fixed = params();
  waves.call(WAVES(constants), experiment, fixed);
  EXPECT_EQ(value(fixed, "max_y", "m"), 5.0);
  EXPECT_EQ(value(fixed, "max_freq", "Hz"), 2.0);
  const jlong tunable = params();
  waves.call(WAVES(querySite), experiment, tunable);
  EXPECT_EQ(names(tunable), (std::vector<std::string>{"beach", "delay"}));
  EXPECT_EQ(value(tunable, "beach", "m"), 0.25);
}

TEST_F(WavesItems, TunableValuesAreSet) {
  EXPECT_EQ(
      thrown_in(WAVES(setSite), experiment, params({{"beach", 50, "cm"}, {"delay", 30, "msec"}})),
      Thrown{});
  const jlong tunable = params();
  waves.call(WAVES(querySite), experiment, tunable);
  EXPECT_NEAR(value(tunable, "beach", "m"), 0.5, 1e-15);
  EXPECT_NE(thrown_in(WAVES(setSite), experiment, params({{"beach", 50, "s"}})), Thrown{});
}

TEST_F(WavesItems, WithoutASiteEachCallIsAFailure) {
  const jlong tank = new_experiment();
  const Thrown none = domain("Object not built");
  EXPECT_EQ(thrown_in(WAVES(siteName), tank), none);
  EXPECT_EQ(thrown_in(WAVES(siteText), tank), none);
  EXPECT_EQ(thrown_in(WAVES(banks), tank), none);
  EXPECT_EQ(thrown_in(WAVES(bank), tank, 0, params()), none);
  EXPECT_EQ(thrown_in(WAVES(paddles), tank, 0), none);
  EXPECT_EQ(thrown_in(WAVES(constants), tank, params()),
            domain("Uncaught Exception in Experiment get consts"));
  EXPECT_EQ(thrown_in(WAVES(querySite), tank, params()),
            domain("Uncaught Exception in Experiment Query"));
  EXPECT_EQ(thrown_in(WAVES(setSite), tank, params()),
            domain("Uncaught Exception in Experiment set"));
}

TEST_F(WavesItems, BanksAndPaddlesAreThoseOfTheSite) {
  EXPECT_EQ(waves.call(WAVES(banks), experiment), 2);
  const jlong south = params();
  EXPECT_EQ(Host::characters_of(waves.call(WAVES(bank), experiment, 1, south)), "south");
  EXPECT_EQ(units(south, "data_units"), "deg");
  EXPECT_EQ(value(south, "max_paddle_motion", "deg"), 20.0);
  // The script numbers the paddles of the first bank from 3.
  EXPECT_EQ(numbers(waves.call(WAVES(paddles), experiment, 0)),
            (std::vector<double>{3, 0, -0.25, 0, 4, 0, 0.75, 0}));
  EXPECT_EQ(numbers(waves.call(WAVES(paddles), experiment, 1)),
            (std::vector<double>{1, 3, -5, 1.5}));
}

TEST_F(WavesItems, BanksThatDoNotExistAreFailures) {
  const Thrown missing = domain("Paddle bank out of range");
  EXPECT_EQ(thrown_in(WAVES(bank), experiment, 2, params()), missing);
  EXPECT_EQ(thrown_in(WAVES(bank), experiment, -1, params()), domain("bank -1 is out of range"));
  EXPECT_EQ(thrown_in(WAVES(paddles), experiment, 2), missing);
  EXPECT_EQ(thrown_in(WAVES(paddles), experiment, -1), domain("bank -1 is out of range"));
}

// Items.

TEST_F(WavesItems, AnItemTellsWhatItNeedsAndTakesIt) {
  const jlong needed = params();
  waves.call(WAVES(queryItem), experiment, group, needed);
  EXPECT_EQ(names(needed), (std::vector<std::string>{"t", "x", "y"}));
  EXPECT_EQ(thrown_in(WAVES(setItem), experiment, group,
                      params({{"x", 1, "m"}, {"y", 2, "m"}, {"t", 0, "s"}})),
            Thrown{});
  EXPECT_EQ(thrown_in(WAVES(setItem), experiment, group, params({{"x", 1, "m"}})),
            thrown_by(NATIVE(Kelpbox_1Experiment_1set_1_1SWIG_11), experiment, proxy, group,
                      params({{"x", 1, "m"}}), proxy));
}

TEST_F(WavesItems, WhatAnItemHasFittedIsWrittenBack) {
  const jlong values = params({{"repeat", 10.196, "s"}});
  insert_enum(values, "dalrymple", "False", "Bool");
  insert_enum(values, "wave_merge", "Null", "WaveMerge");
  waves.call(WAVES(setItem), experiment, run, values);
  EXPECT_NEAR(value(values, "repeat", "s"), 10.2, 1e-12);  // whole samples at 100 Hz
}

TEST_F(WavesItems, RemovedItemsAreFailures) {
  EXPECT_EQ(thrown_in(WAVES(remove), experiment, group), Thrown{});
  EXPECT_EQ(thrown_in(WAVES(remove), experiment, group), domain("removing item of type NULL"));
  EXPECT_EQ(thrown_in(WAVES(queryItem), experiment, group, params()),
            domain("Trying to query an inactive type"));
  EXPECT_EQ(thrown_in(WAVES(clear), experiment), Thrown{});
  const Thrown missing = domain("ID out of range");
  EXPECT_EQ(thrown_in(WAVES(setItem), experiment, run, params()), missing);
  EXPECT_EQ(thrown_in(WAVES(remove), experiment, run), missing);
  EXPECT_EQ(thrown_in(WAVES(remove), experiment, -1), domain("ID -1 is out of range"));
}

TEST_F(WavesItems, ParametersOfFormulasAreDeclared) {
  const jlong out = params();
  EXPECT_EQ(thrown_by_formulas("low[Hz]@Hz#hs[m]*$[Hz]@m2s", out), Thrown{});
  EXPECT_EQ(names(out), (std::vector<std::string>{"hs", "low"}));
  EXPECT_EQ(thrown_by_formulas(wave, params()),
            domain(std::string("Error while parsing expression ::") + wave_in_java));
  EXPECT_EQ(output.find("Help"), 0U);
  waves.call(WAVES(captureOutput), JNI_TRUE);
  EXPECT_NE(thrown_by_formulas(wave, params()), Thrown{});
  waves.call(WAVES(captureOutput), JNI_FALSE);
  EXPECT_EQ(output, "");
  EXPECT_EQ(Host::characters_of(waves.call(WAVES(takeOutput))).find("Help"), 0U);
}

TEST_F(WavesItems, UnitsAreConverted) {
  EXPECT_EQ(waves.call(WAVES(convert), bytes("m"), bytes("mm")), 1000.0);
  EXPECT_EQ(thrown_in(WAVES(convert), bytes("m"), bytes("s")),
            thrown_by(NATIVE(Kelpbox_1Param_1convert), "m", "s"));
  EXPECT_EQ(thrown_in(WAVES(convert), bytes("m"), bytes(wave)),
            domain(std::string("Unknown units - ") + wave_in_java));
}

}  // namespace
