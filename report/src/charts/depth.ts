// The depth along the tank, with paddles and points where they stand.
import type uPlot from 'uplot';
import type { Plan } from '../data/data';
import { plainNumber } from '../drawing/axis_ticks';
import { chartFrame } from '../page/frame';
import type { Page } from '../page/page';
import type { Line, LineChartData } from './chart_types';
import { LineChart } from './line_chart';
import { OwnStretch } from './stretch';

export async function depthPart({ data, view }: Page): Promise<HTMLElement | null> {
  const { plan, points } = data.summary;
  if (!plan || plan.profile.x.length === 0) return null;
  const bed = wholeProfile(plan);
  const deepest = Math.max(...bed.depth);
  const shallowest = Math.min(...bed.depth);
  const banks = plan.banks
    .filter((bank) => bank.paddles.x.length > 0)
    .map((bank) => ({
      name: short(bank.name),
      from: Math.min(...bank.paddles.x),
      to: Math.max(...bank.paddles.x),
    }));
  // Of a bank along the tank, the first and the last paddle.
  const paddles = [...new Set(banks.flatMap(({ from, to }) => [from, to]))].sort((a, b) => a - b);
  const lines: Line[] = [
    { name: 'bed', kind: 'area', values: bed.depth.map((depth) => -depth) },
    { name: 'still water level', plain: true, values: bed.x.map(() => 0) },
  ];
  if (paddles.length > 0)
    lines.push({ name: 'paddles', kind: 'post', x: paddles, values: paddles.map((x) => -depthAt(bed, x)) });
  const atPoints = [...points].sort((a, b) => a.x - b.x);
  if (points.length > 0)
    lines.push({ name: 'points', kind: 'dots', x: atPoints.map((point) => point.x), values: atPoints.map(() => 0) });
  const chart: LineChartData = {
    title: 'Depth along the tank',
    x: { name: 'x', unit: 'm', values: bed.x },
    y: { name: 'height above still water', unit: 'm', range: () => [-1.15 * deepest, 0.22 * deepest] },
    lines,
    labels: [
      ...(points.length > 8 ? [] : atPoints.map((point) => ({ x: point.x, y: 0, text: short(point.name) }))),
      ...(banks.length > 4
        ? []
        : banks.map(({ name, to }, i) => ({ x: to, y: (-0.35 - 0.15 * i) * depthAt(bed, to), text: name }))),
    ],
    stretch: new OwnStretch(view, bed.x[0], bed.x[bed.x.length - 1]),
    height: 240,
  };
  const drawn = new LineChart(view, chart);
  const frame = chartFrame({
    id: 'depth',
    title: chart.title,
    caption: '',
    png: () => drawn.picture(),
    csv: () => drawn.csv(),
  });
  drawn.addReset(frame);
  frame.body.append(drawn.root);
  const depths =
    shallowest === deepest
      ? `The depth is ${plainNumber(deepest)} m everywhere`
      : `The depth goes from ${plainNumber(deepest)} m to ${plainNumber(shallowest)} m`;
  const places =
    `${depths}, x from ${plainNumber(bed.x[0])} m to ${plainNumber(bed.x[bed.x.length - 1])} m.` +
    banks.map(bankPlace).join('') +
    atPoints
      .slice(0, 8)
      .map(({ name, x }) => ` Point ${short(name)}: x ${plainNumber(x)} m, ${plainNumber(depthAt(bed, x))} m deep.`)
      .join('');
  frame.setCaption(places);
  drawn.onDraw = (plot) => frame.setCaption(`${places} ${exaggeration(plot)}`);
  return frame.section;
}

function bankPlace({ name, from, to }: { name: string; from: number; to: number }): string {
  const start = to - from < 0.01 ? 'at' : `from x ${plainNumber(from)} m to`;
  return ` Bank ${name} stands ${start} x ${plainNumber(to)} m.`;
}

function exaggeration(plot: uPlot): string {
  const perMetre = (key: string, pixels: number) => pixels / (plot.scales[key].max! - plot.scales[key].min!);
  const times = perMetre('y', plot.bbox.height) / perMetre('x', plot.bbox.width);
  return `On the screen, heights are drawn ${plainNumber(times, 2)} times as large as lengths.`;
}

interface Bed {
  x: number[];
  depth: number[];
}

// The profile goes on level to the ends of the tank.
function wholeProfile(plan: Plan): Bed {
  const x = [...plan.profile.x];
  const depth = [...plan.profile.depth];
  if (plan.x[0] < x[0]) (x.unshift(plan.x[0]), depth.unshift(depth[0]));
  if (plan.x[1] > x[x.length - 1]) (x.push(plan.x[1]), depth.push(depth[depth.length - 1]));
  if (x.length === 1) (x.push(x[0] + 1), depth.push(depth[0]));
  return { x, depth };
}

function depthAt(bed: Bed, x: number): number {
  const next = bed.x.findIndex((end) => end >= x);
  if (next < 0) return bed.depth[bed.depth.length - 1];
  if (next === 0) return bed.depth[0];
  const part = (x - bed.x[next - 1]) / (bed.x[next] - bed.x[next - 1]);
  return bed.depth[next - 1] + part * (bed.depth[next] - bed.depth[next - 1]);
}

function short(name: string): string {
  return name.length > 24 ? name.slice(0, 23) + '…' : name;
}
