// The elevation at each point over time, with its statistics beside it.
import type { PointSeries, SummaryPoint } from '../data/data';
import { unpack } from '../data/packed';
import { inUnit, largest, suited } from '../data/units';
import { lengthText, plainNumber } from '../drawing/axis_ticks';
import { chartFrame, element } from '../page/frame';
import { whenNear } from '../page/lazy';
import type { Page } from '../page/page';
import type { LineChartData } from './chart_types';
import { LineChart } from './line_chart';
import { pointTable } from './point_table';
import { TimeStretch } from './stretch';

export async function pointsPart(page: Page): Promise<HTMLElement | null> {
  const { points } = page.data;
  if (points.length === 0) return null;
  const section = element('section', 'part');
  section.id = 'points';
  section.append(
    element('h2', '', points.length === 1 ? 'Elevation at the point' : `Elevation at ${points.length} points`),
  );
  points.forEach((point, i) => {
    const place = element('div', 'point-place');
    section.append(place);
    whenNear(place, async () => place.replaceChildren(await pointChart(page, point, page.data.summary.points[i], i)));
  });
  return section;
}

async function pointChart(
  { view }: Page,
  series: PointSeries,
  point: SummaryPoint,
  index: number,
): Promise<HTMLElement> {
  const counts = await unpack(series.eta);
  const eta = counts.slice(0, counts.counts.length);
  const unit = suited('m', largest(eta));
  const values = inUnit(eta, unit);
  const chart: LineChartData = {
    title: `Elevation at point ${point.name}`,
    x: { name: 'time', unit: 's', values: Float64Array.from(eta, (_, i) => i / series.rate) },
    y: { name: 'elevation', unit: unit.name },
    lines: [{ name: 'elevation', values }],
    stretch: new TimeStretch(view),
    height: 220,
  };
  const drawn = new LineChart(view, chart);
  const frame = chartFrame({
    id: `point-${index + 1}`,
    title: chart.title,
    caption: caption(eta, series, point),
    png: () => drawn.picture(),
    csv: () => drawn.csv(),
  });
  drawn.addReset(frame);
  const beside = element('div', 'beside');
  beside.append(drawn.root, pointTable(point));
  frame.body.append(beside);
  return frame.section;
}

function caption(eta: Float64Array, { rate, every }: PointSeries, point: SummaryPoint): string {
  let lowest = Infinity;
  let highest = -Infinity;
  let missing = 0;
  for (const value of eta) {
    if (Number.isNaN(value)) ++missing;
    if (value < lowest) lowest = value;
    if (value > highest) highest = value;
  }
  const range = highest >= lowest ? `from ${lengthText(lowest)} to ${lengthText(highest)}` : 'NaN throughout';
  const length = `${plainNumber(eta.length / rate, 4)} s at ${plainNumber(rate)} Hz`;
  return (
    `At x ${plainNumber(point.x)} m, y ${plainNumber(point.y)} m: ${range}, ${length}.` +
    (every > 1 ? ` Thinned: one in ${every} samples of the run is shown.` : '') +
    (missing > 0 ? ` ${missing} of ${eta.length} samples are NaN and leave gaps.` : '') +
    point.remarks.map((remark) => ` ${remark}`).join('')
  );
}
