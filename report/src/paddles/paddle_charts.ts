// The chosen paddle of a bank: its signal with limits, its velocity, its spectrum.
import type { LineChartData } from '../charts/chart_types';
import { LineChart } from '../charts/line_chart';
import { OwnStretch, TimeStretch } from '../charts/stretch';
import { inUnit, largest, suited } from '../data/units';
import { plainNumber } from '../drawing/axis_ticks';
import { chartFrame, element, type ChartFrame } from '../page/frame';
import type { View } from '../page/view';
import { bankRow, excursion, limitMarks, paddleName, rowOf, usedShare, worstPaddle, type BankData } from './bank_data';
import { velocity } from './velocity';

interface Shown {
  data: LineChartData;
  caption: string;
}

export function paddleCharts(bank: BankData, view: View): HTMLElement {
  const host = element('div', 'paddle-charts');
  const pair = element('div', 'pair');
  const { df, first } = bank.of.spectrum;
  const harmonics = bank.amplitudes.shape[1] ?? 0;
  const frequencies = Float64Array.from({ length: harmonics }, (_, j) => (first + j) * df);
  const stretch = new OwnStretch(view, first * df, (first + Math.max(1, harmonics - 1)) * df);
  let row = -1;
  const makers = [
    () => signalOf(bank, view, row),
    () => velocityOf(bank, view, row),
    () => spectrumOf(bank, row, frequencies, stretch),
  ];
  const charts: { chart: LineChart; frame: ChartFrame }[] = [];

  const refresh = (): void => {
    const kept = row < 0 ? rowOf(bank, worstPaddle(bank)) : row;
    const chosen = view.bank === bank.of.bank ? rowOf(bank, view.paddle) : kept;
    if (chosen === row) return;
    row = chosen;
    makers.forEach((make, i) => {
      const { data, caption } = make();
      if (!charts[i])
        charts[i] = framed(`drive-${bank.index + 1}-${['signal', 'velocity', 'spectrum'][i]}`, data, view);
      else charts[i].chart.set(data);
      charts[i].frame.setCaption(caption);
      charts[i].frame.section.querySelector('h2')!.textContent = data.title;
    });
  };
  refresh();
  view.watch(refresh);
  pair.append(charts[1].frame.section, charts[2].frame.section);
  host.append(charts[0].frame.section, pair);
  return host;
}

function framed(id: string, data: LineChartData, view: View): { chart: LineChart; frame: ChartFrame } {
  const chart = new LineChart(view, data);
  const frame = chartFrame({ id, title: data.title, caption: '', png: () => chart.picture(), csv: () => chart.csv() });
  chart.addReset(frame);
  frame.body.append(chart.root);
  return { chart, frame };
}

function times(bank: BankData): Float64Array {
  return Float64Array.from({ length: bank.samples }, (_, i) => i / bank.of.rate);
}

function signalOf(bank: BankData, view: View, row: number): Shown {
  const { of } = bank;
  const paddle = of.paddles[row];
  const name = paddleName(bank, paddle);
  const thinned = of.every > 1 ? ` Thinned: one in ${of.every} samples of the run is shown.` : '';
  // Far limits would leave a flat line.
  const share = usedShare(bank);
  const near = share > 0.3;
  const limits =
    share === 0
      ? ''
      : ` The bank uses ${plainNumber(100 * share, 2)} % of its limits` +
        (near ? '.' : '; switch them on below the chart.');
  return {
    data: {
      title: `Signal of ${name}`,
      x: { name: 'time', unit: 's', values: times(bank) },
      y: { name: 'position', unit: bank.unit.name },
      lines: [{ name: 'signal', values: inUnit(bankRow(bank, row), bank.unit) }],
      marks: limitMarks(bank, near),
      stretch: new TimeStretch(view),
      height: 240,
    },
    caption:
      `From ${excursion(bank, of.lowest[paddle])} to ${excursion(bank, of.highest[paddle])} over all samples.` +
      limits +
      thinned,
  };
}

function velocityOf(bank: BankData, view: View, row: number): Shown {
  const { of, summary } = bank;
  const paddle = of.paddles[row];
  const values = velocity(bankRow(bank, row), of.rate, bank.repeats);
  const unit = suited(summary.units + '/s', Math.max(largest(values), of.velocity[paddle] ?? 0));
  return {
    data: {
      title: `Velocity of ${paddleName(bank, paddle)}`,
      x: { name: 'time', unit: 's', values: times(bank) },
      y: { name: 'velocity', unit: unit.name },
      lines: [{ name: 'velocity', values: inUnit(values, unit) }],
      stretch: new TimeStretch(view),
    },
    caption:
      `At most ${plainNumber((of.velocity[paddle] ?? NaN) * unit.factor)} ${unit.name} over all samples. ` +
      'The line is the slope of the samples shown, by central differences over seven points' +
      (bank.repeats ? '.' : '; the first and the last three have none.'),
  };
}

function spectrumOf(bank: BankData, row: number, frequencies: Float64Array, stretch: OwnStretch): Shown {
  const count = frequencies.length;
  const values = bank.amplitudes.slice(row * count, (row + 1) * count);
  const unit = suited(bank.summary.units, largest(values));
  let most = 0;
  for (let j = 1; j < count; ++j) if (values[j] > values[most]) most = j;
  return {
    data: {
      title: `Amplitudes of ${paddleName(bank, bank.of.paddles[row])}`,
      x: { name: 'frequency', unit: 'Hz', values: frequencies },
      y: { name: 'amplitude', unit: unit.name },
      lines: [{ name: 'amplitude', values: inUnit(values, unit) }],
      stretch,
    },
    caption:
      count === 0
        ? 'The run has no harmonics.'
        : `Largest ${plainNumber(values[most] * unit.factor)} ${unit.name} at ${plainNumber(frequencies[most])} Hz; ` +
          `harmonics are ${plainNumber(bank.of.spectrum.df, 2)} Hz apart.`,
  };
}
