// The statistics of one point.
import { lengthText, plainNumber } from './axis_ticks';
import type { SummaryPoint } from './data';
import { element } from './frame';

export function pointTable(point: SummaryPoint): HTMLElement {
  const table = element('table', 'point-table');
  table.append(element('caption', 'hidden', `Statistics of point ${point.name}`));
  const body = table.createTBody();
  for (const [name, { value, units }] of Object.entries(point.statistics)) {
    if (value === null) continue;
    const row = body.insertRow();
    const head = element('th', '', name);
    head.scope = 'row';
    row.append(head, element('td', '', withUnit(value, units)));
  }
  return table;
}

function withUnit(value: number, units: string): string {
  if (units === 'm') return lengthText(value);
  if (units === 'rad') return `${plainNumber((value * 180) / Math.PI)}°`;
  return units === '1' || units === '' ? plainNumber(value) : `${plainNumber(value)} ${units}`;
}
