// The variance density that was asked for, and what the run makes.
import type { PointSeries } from '../data/data';
import { unpack } from '../data/packed';
import { densityUnit, inUnit, largest } from '../data/units';
import { lengthText, plainNumber } from '../drawing/axis_ticks';
import { button, chartFrame } from '../page/frame';
import type { Page } from '../page/page';
import { bandMeans } from './band_means';
import type { Line, LineChartData } from './chart_types';
import { LineChart } from './line_chart';
import { OwnStretch } from './stretch';

export async function spectrumPart({ data, view }: Page): Promise<HTMLElement | null> {
  const { spectrum, run, points } = data.summary;
  if (!spectrum || spectrum.f.length === 0) return null;
  const band = spectrum.harmonics / run.repeat; // Hz
  const sines = spectrum.lines.map((line) => line.a ** 2 / 2 / band);
  const unit = densityUnit(Math.max(largest(spectrum.made), largest(spectrum.asked ?? []), largest(sines)));
  const limits = [run.lowest_harmonic / run.repeat, run.highest_harmonic / run.repeat];

  const lines: Line[] = [{ name: 'made', values: inUnit(spectrum.made, unit) }];
  if (spectrum.asked) lines.push({ name: 'asked', values: inUnit(spectrum.asked, unit) });
  if (sines.length > 0) {
    lines.push({
      name: 'sine waves asked',
      kind: 'stem',
      x: spectrum.lines.map((line) => line.f),
      values: inUnit(sines, unit),
    });
  }
  const measured = await Promise.all(data.points.map((point) => pointDensity(point, band)));
  measured.forEach((density, i) => {
    if (density)
      lines.push({
        name: `made at point ${points[i]?.name ?? i + 1}`,
        shown: false,
        x: density.f,
        values: inUnit(density.values, unit),
      });
  });

  // Also what was asked for beyond the limits, and is not made.
  const ends = [...limits, spectrum.f[0], spectrum.f[spectrum.f.length - 1]];
  const stretch = new OwnStretch(view, Math.max(0, Math.min(...ends) - 4 * band), Math.max(...ends) + 4 * band);
  const chart: LineChartData = {
    title: 'Spectrum asked and made',
    x: { name: 'frequency', unit: 'Hz', values: spectrum.f },
    y: { name: 'variance density', unit: unit.name },
    lines,
    marks: [{ name: 'band of the run', axis: 'x', at: limits }],
    stretch,
    height: 320,
  };
  const drawn = new LineChart(view, chart);
  const { at } = spectrum;
  const frame = chartFrame({
    id: 'spectrum',
    title: chart.title,
    caption:
      `At x ${plainNumber(at.x)} m, y ${plainNumber(at.y)} m. ${peak('Made', spectrum.f, spectrum.made)}` +
      (spectrum.asked ? ` ${peak('Asked', spectrum.f, spectrum.asked)}` : '') +
      sineText(spectrum.lines) +
      bandText(spectrum.harmonics, band) +
      ` The run makes waves from ${plainNumber(limits[0])} Hz to ${plainNumber(limits[1])} Hz.`,
    png: () => drawn.picture(),
    csv: () => drawn.csv(),
  });
  let log = false;
  const toggle = button('Log scale', 'Logarithmic scale of variance density', () => {
    log = !log;
    toggle.setAttribute('aria-pressed', String(log));
    drawn.set({ ...chart, y: { ...chart.y, log } });
  });
  toggle.setAttribute('aria-pressed', 'false');
  frame.tools.prepend(toggle);
  drawn.addReset(frame);
  frame.body.append(drawn.root);
  return frame.section;
}

// Of a record, in bands as wide as those of the sea.
async function pointDensity(point: PointSeries, band: number): Promise<{ f: number[]; values: number[] } | null> {
  if (!point.spectrum) return null;
  const { df, first, density } = point.spectrum;
  const counts = await unpack(density);
  const values = counts.slice(0, counts.counts.length);
  return bandMeans(
    Array.from(values, (_, i) => (first + i) * df),
    values,
    Math.max(1, Math.round(band / df)),
  );
}

function peak(name: string, f: number[], density: (number | null)[]): string {
  let most = 0;
  for (let i = 1; i < f.length; ++i) if ((density[i] ?? 0) > (density[most] ?? 0)) most = i;
  const step = f.length > 1 ? (f[f.length - 1] - f[0]) / (f.length - 1) : 0;
  const variance = density.reduce<number>((sum, value) => sum + (value ?? 0) * step, 0);
  if (!(variance > 0)) return `${name}: no variance.`;
  const height = lengthText(4 * Math.sqrt(variance));
  return `${name}: peak at ${plainNumber(f[most])} Hz, four standard deviations ${height}.`;
}

function bandText(harmonics: number, width: number): string {
  const apart = `${plainNumber(width, 2)} Hz`;
  return harmonics === 1 ? ` Harmonics are ${apart} apart.` : ` Each value is the mean over ${harmonics} harmonics (${apart}).`;
}

function sineText(lines: { f: number; a: number }[]): string {
  if (lines.length === 0) return '';
  const some = lines.slice(0, 3).map(({ f, a }) => `${plainNumber(f)} Hz with amplitude ${lengthText(a)}`);
  const rest = lines.length > 3 ? `, and ${lines.length - 3} more` : '';
  return ` Sine waves asked: ${some.join(', ')}${rest}; each is drawn as its variance spread over one band.`;
}
