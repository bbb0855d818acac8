// The paddles of a bank beside each other: how far and how fast each goes, over all samples.
import type { LineChartData } from '../charts/chart_types';
import { LineChart } from '../charts/line_chart';
import { greatest, inUnit, largest, suited } from '../data/units';
import { plainNumber } from '../drawing/axis_ticks';
import { chartFrame, element } from '../page/frame';
import type { View } from '../page/view';
import { excursion, limitMarks, paddleNumber, type BankData } from './bank_data';
import { PaddleStretch } from './paddle_stretch';

export function bankOverview(bank: BankData, view: View): HTMLElement {
  const { of, unit, summary } = bank;
  const stretch = new PaddleStretch(view, of.bank, of.highest.length);
  const places = of.highest.map((_, i) => i + 1);
  // Places between the paddles have no name.
  const text = (place: number) =>
    Number.isInteger(place) && of.highest[place - 1] !== undefined ? String(paddleNumber(bank, place - 1)) : '';
  const x = { name: 'paddle', unit: '', text, values: places };
  const top = greatest(of.highest, 1);
  const bottom = greatest(of.lowest, -1);
  const extremes: LineChartData = {
    title: 'Highest and lowest position by paddle',
    x,
    y: { name: 'position', unit: unit.name },
    lines: [
      { name: 'highest', kind: 'bars', values: inUnit(of.highest, unit) },
      { name: 'lowest', kind: 'bars', values: inUnit(of.lowest, unit) },
    ],
    marks: limitMarks(bank),
    stretch,
  };
  const fast = suited(summary.units + '/s', largest(of.velocity));
  const quickest = greatest(of.velocity, 1);
  const speed: LineChartData = {
    title: 'Greatest velocity by paddle',
    x,
    y: { name: 'velocity', unit: fast.name },
    lines: [{ name: 'greatest velocity', kind: 'bars', values: inUnit(of.velocity, fast) }],
    stretch,
  };
  const name = (paddle: number) => `paddle ${paddleNumber(bank, paddle)}`;
  const pair = element('div', 'pair');
  pair.append(
    framed(
      `drive-${bank.index + 1}-extremes`,
      extremes,
      `Highest ${excursion(bank, of.highest[top])} (${name(top)}), ` +
        `lowest ${excursion(bank, of.lowest[bottom])} (${name(bottom)}).${limitText(bank)}`,
      view,
    ),
    framed(
      `drive-${bank.index + 1}-velocities`,
      speed,
      `Greatest ${plainNumber(of.velocity[quickest] * fast.factor)} ${fast.name} (${name(quickest)}), ` +
        `least ${plainNumber(of.velocity[greatest(of.velocity, -1)] * fast.factor)} ${fast.name}. ` +
        'The limit is not known here.',
      view,
    ),
  );
  return pair;
}

function framed(id: string, chart: LineChartData, caption: string, view: View): HTMLElement {
  const drawn = new LineChart(view, chart);
  const frame = chartFrame({ id, title: chart.title, caption, png: () => drawn.picture(), csv: () => drawn.csv() });
  drawn.addReset(frame);
  frame.body.append(drawn.root);
  return frame.section;
}

function limitText(bank: BankData): string {
  const { clip_limit: clip, maximum, minimum } = bank.summary;
  const reach =
    maximum === null || minimum === null
      ? ''
      : ` The machine reaches from ${excursion(bank, minimum)} to ${excursion(bank, maximum)}.`;
  return (clip === null ? '' : ` The clip limit is ${excursion(bank, clip)}.`) + reach;
}
