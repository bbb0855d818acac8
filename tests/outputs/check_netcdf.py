"""Compares the NetCDF files of a run with the values that the test wrote, as xarray reads them.

Usage: check_netcdf.py KIND FOLDER EXPECTED. Ends with an exception at the first difference.
"""
import sys

import netCDF4
import numpy as np
import xarray as xr

kind, folder, expected_folder = sys.argv[1:]


def expected(name, dtype=float):
    return np.fromfile(f"{expected_folder}/{name}", dtype=dtype)


def same(found, wanted, what):
    found = np.asarray(found)
    assert found.shape == np.shape(wanted), (what, found.shape, np.shape(wanted))
    assert np.array_equal(found, wanted), what


def opened(name):
    data = xr.open_dataset(f"{folder}/{name}")
    assert data.attrs["Conventions"] == "CF-1.8"
    assert data.attrs["source"].startswith("kelpbox ")
    assert data.attrs["institution"]
    return data


def check_times(name, rate, count):
    """The clock of every file starts at the run's start."""
    data = opened(name)
    nanoseconds = (data.time.values - np.datetime64("1970-01-01")).astype("timedelta64[ns]")
    assert np.allclose(nanoseconds.astype(float) * 1e-9, np.arange(count) / rate, atol=2e-9)
    raw = xr.open_dataset(f"{folder}/{name}", decode_times=False)
    assert np.allclose(raw.time, np.arange(count) / rate, rtol=1e-12)
    assert raw.time.attrs["units"] == "seconds since 1970-01-01 00:00:00Z"
    assert raw.time.attrs["calendar"] == "standard"
    return data


def check_drive(rate, banks, samples):
    data = check_times("drive.nc", rate, samples)
    for number, (paddles, units) in enumerate(banks, 1):
        signals = data[f"drive_{number}"]
        same(signals, expected(f"drive_{number}").reshape(paddles, samples), signals.name)
        assert signals.attrs["units"] == units
        assert {f"x_{number}", f"y_{number}", f"angle_{number}"} < set(signals.coords)
        same(data[f"paddle_{number}"], np.arange(1, paddles + 1), "paddle numbers")
        # Nothing is hidden, whatever the limits.
        raw = netCDF4.Dataset(f"{folder}/drive.nc")[signals.name]
        assert not np.ma.is_masked(raw[:]) and raw.filters()["zlib"] is False
    return data


def check_elevations(name, rate, points):
    first = expected(f"eta_{points[0][0]}")
    data = check_times(name, rate, len(first))
    assert data.attrs["featureType"] == "timeSeries"
    assert data.station_name.attrs["cf_role"] == "timeseries_id"
    assert data.eta.dims == ("station", "time")
    assert data.eta.attrs["units"] == "m"
    assert data.eta.attrs["standard_name"] == "sea_surface_height_above_mean_sea_level"
    for row, (number, station, x, y) in enumerate(points):
        same(data.eta[row], expected(f"eta_{number}"), f"eta {number}")
        assert str(data.station_name.values[row]) == station
        assert (float(data.x[row]), float(data.y[row])) == (x, y)


def check_spectra(name, repeat, sectors, points):
    data = opened(name)
    assert data.ef.attrs["units"] == "m2 s"
    assert data.ef.attrs["standard_name"] == "sea_surface_wave_variance_spectral_density"
    assert data.frequency.attrs["standard_name"] == "wave_frequency"
    assert np.allclose(data.frequency, np.arange(data.sizes["frequency"]) / repeat, rtol=1e-15)
    assert np.allclose(data.direction, np.arange(sectors) * 2 * np.pi / sectors, rtol=1e-14)
    for row, point in enumerate(points):
        for variable in ("ef", "amplitude", "share"):
            same(data[variable][row], expected(f"{variable}_{point[0]}"), variable)
    # The variance is the same by either way.
    variance = 0.5 * (data.amplitude.values**2).sum(axis=1)
    assert np.allclose(data.ef.values.sum(axis=1) / repeat, variance, rtol=1e-12)
    assert (variance > 0).all()


def check_field():
    codes = expected("field", np.int16).reshape(160, 39, 51)
    assert codes.max() > 100
    data = check_times("field.nc", 5.0, 160)
    assert data.eta.dims == ("time", "y", "x")
    assert data.eta.dtype == np.float32
    same(data.eta, codes.astype(np.float32) * np.float32(4 / 32767), "eta")
    assert np.allclose(data.x, np.linspace(0, 30, 51), atol=1e-12)
    assert np.allclose(data.y, np.linspace(1, 20, 39), atol=1e-12)
    assert (data.x.attrs["axis"], data.y.attrs["axis"]) == ("X", "Y")
    encoding = data.eta.encoding
    assert encoding["dtype"] == np.int16
    assert encoding["_FillValue"] == -32768
    assert encoding["zlib"] and encoding["shuffle"] and encoding["complevel"] == 1
    frames, rows, columns = encoding["chunksizes"]
    assert (frames, rows, columns) == (32, 39, 26)
    scale = netCDF4.Dataset(f"{folder}/field.nc")["eta"].scale_factor
    assert scale.dtype == np.float32 and scale == np.float32(4 / 32767)
    low, high = data.eta.attrs["actual_range"]
    assert (low, high) == (data.eta.values.min(), data.eta.values.max())


if kind == "basin":
    drive = check_drive(20.0, [(40, "rad")], 640)
    assert drive.attrs["title"] == "storm"
    assert drive.attrs["repeat_time"] == 32 and drive.attrs["ramp_time"] == 2
    assert drive.attrs["held_at_limits"] == "no" and "history" not in drive.attrs
    same(drive.y_1, 0.25 + 0.5 * np.arange(40), "paddle positions")
    places = [(1, "model", 12.0, 9.0), (2, "side", 8.0, 3.0)]
    check_elevations("points.nc", 20.0, places)
    check_spectra("spectra.nc", 32.0, 36, places)
    check_field()
elif kind == "l_basin":
    drive = check_drive(16.0, [(24, "m"), (16, "m")], 320)
    assert drive.attrs["title"] == "L-f\u00f6rmig"
    assert drive.attrs["held_at_limits"] == "yes"
    assert np.allclose(drive.angle_2, np.pi / 2)
    first, second = (1, "Mole \u2116 1", 3.0, 4.0), (2, "point 2", 3.0, 5.0)
    check_elevations("point_1.nc", 20.0, [first])
    check_elevations("point_2.nc", 25.0, [second])
    check_spectra("spectrum_1.nc", 20.0, 36, [first])
    check_spectra("spectrum_2.nc", 20.0, 8, [second])
elif kind == "history":
    history = opened("drive.nc").attrs["history"]
    assert history.startswith("2023-11-14T22:13:20Z kelpbox "), history
else:
    raise SystemExit(f"unknown kind {kind}")
