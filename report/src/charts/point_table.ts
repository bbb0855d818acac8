// The statistics of one point.
import type { SummaryPoint } from '../data/data';
import { lengthText, plainNumber } from '../drawing/axis_ticks';
import { element } from '../page/frame';

// The names in summary.json in plain words. `max_amp` is a height, and `sig_h` is not the mean of the
// highest third. `Var` has no words: it is the fourth root of the variance, and Hs says the same.
const words: Record<string, string> = {
  Hs: 'Hs, four standard deviations',
  Ts: 'mean period by energy',
  max_amp: 'highest wave',
  sig_h: 'exceeded by a third of the waves',
  sig_t: 'period of that wave',
  reg_h: 'median wave height',
  reg_t: 'median period',
};

export function pointTable(point: SummaryPoint): HTMLElement {
  const table = element('table', 'point-table');
  table.append(element('caption', 'hidden', `Statistics of point ${point.name}`));
  const body = table.createTBody();
  for (const [name, { value, units }] of Object.entries(point.statistics)) {
    if (value === null || name === 'Var') continue;
    const row = body.insertRow();
    const head = element('th', '', words[name] ?? name);
    head.scope = 'row';
    head.title = name;
    row.append(head, element('td', '', withUnit(value, units)));
  }
  return table;
}

function withUnit(value: number, units: string): string {
  if (units === 'm') return lengthText(value);
  if (units === 'rad') return `${plainNumber((value * 180) / Math.PI)}°`;
  return units === '1' || units === '' ? plainNumber(value) : `${plainNumber(value)} ${units}`;
}
