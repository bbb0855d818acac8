// The table of what was asked and what is made. Rows that need a look come first.
import { csvLine } from '../data/csv';
import type { Finding } from '../data/data';
import { counted } from '../data/words';
import { turnBetween } from '../directions/angles';
import { plainNumber, withMinus } from '../drawing/axis_ticks';
import { chartFrame, element } from './frame';
import type { Part } from './page';

const groups: Record<string, string> = { sea: 'Sea', lost: 'Lost on the way', machine: 'Machine', waves: 'Waves' };
const columns = ['quantity', 'asked', 'made', 'difference', 'criterion', 'verdict'];

export const findingsPart: Part = async ({ data }) => {
  const { findings, judged, looks } = data.summary;
  if (findings.length === 0) return null;
  const frame = chartFrame({
    id: 'findings',
    title: 'Asked and made',
    caption: caption(judged, looks, findings.length),
    csv: () => csv(findings),
  });
  const first = findings.filter((finding) => finding.verdict === 'look');
  const rest = findings.filter((finding) => finding.verdict !== 'look' && !finding.minor);
  const bodies = first.length > 0 ? [body('Needs a look', first)] : [];
  frame.body.append(table('Asked and made', [...bodies, ...grouped(rest)]));
  return frame.section;
};

// Findings of less weight, folded.
export const moreFindingsPart: Part = async ({ data }) => {
  const minor = data.summary.findings.filter((finding) => finding.verdict !== 'look' && finding.minor);
  if (minor.length === 0) return null;
  const section = element('section', 'more-findings');
  const fold = element('details');
  const good = minor.filter((finding) => finding.verdict === 'good').length;
  const title = `${counted(minor.length, 'more finding')}${good > 0 ? `, ${good} of them judged good` : ''}`;
  fold.append(element('summary', '', title), table('More findings', grouped(minor)));
  section.append(fold);
  return section;
};

// The verdict in a word, the same as on the command line.
export function verdictWord({ verdict, key, group }: Finding): string {
  if (verdict === null) return '';
  if (verdict === 'good') return 'good';
  if (key === 'waves_per_run' || key === 'peak_harmonics') return 'FEW';
  if (group === 'lost' && key !== 'redirected') return 'LOST';
  return /^(stroke|velocity|acceleration|clipped|steepness|height_to_depth|ursell)/.test(key) ? 'HIGH' : 'LOOK';
}

function caption(judged: number, looks: number, all: number): string {
  const good = judged - looks;
  return `${counted(all, 'finding')}: ${good} good, ${looks} to look at, ${all - judged} for information.`;
}

function grouped(findings: Finding[]): HTMLElement[] {
  const names = [...new Set(findings.map((finding) => finding.group))];
  return names.map((name) => body(groups[name] ?? name, findings.filter((finding) => finding.group === name)));
}

function table(name: string, bodies: HTMLElement[]): HTMLElement {
  const made = element('table', 'findings');
  made.append(element('caption', 'hidden', name));
  const head = element('thead');
  const row = element('tr');
  for (const column of columns) {
    const cell = element('th', `of-${column}`, column);
    cell.scope = 'col';
    row.append(cell);
  }
  head.append(row);
  made.append(head, ...bodies);
  return made;
}

function body(name: string, findings: Finding[]): HTMLElement {
  const made = element('tbody');
  const row = element('tr', 'group');
  const title = element('th', '', name);
  title.scope = 'rowgroup';
  row.append(title);
  made.append(row, ...findings.map(findingRow));
  return made;
}

function findingRow(finding: Finding): HTMLElement {
  const word = verdictWord(finding);
  const row = element('tr', finding.verdict === 'look' ? 'is-bad' : '');
  const name = element('th', 'of-quantity', finding.quantity);
  name.scope = 'row';
  if (finding.remark) name.append(element('span', 'remark', withMinus(finding.remark)));
  const verdict = element('td', `of-verdict ${finding.verdict === 'good' ? 'is-good' : ''}`);
  if (word) {
    const mark = element('span', 'mark', finding.verdict === 'good' ? '✓' : '▲');
    mark.setAttribute('aria-hidden', 'true');
    verdict.append(mark, word);
  }
  row.append(
    name,
    element('td', 'of-asked', unbroken(finding.asked_text)),
    element('td', 'of-made', unbroken(finding.made_text)),
    element('td', 'of-difference', unbroken(difference(finding))),
    element('td', 'of-criterion', withMinus(finding.criterion)),
    verdict,
  );
  return row;
}

// A number stays on one line with its unit.
function unbroken(text: string): string {
  const shown = withMinus(text);
  return shown.length <= 13 ? shown.replaceAll(' ', '\u00a0') : shown;
}

// Angles differ in degrees, all else in percent of what was asked.
export function difference({ asked, made, units }: Finding): string {
  if (asked === null || made === null) return '';
  const angle = units === 'rad';
  if (!angle && asked === 0) return '';
  const value = angle ? (turnBetween(asked, made) * 180) / Math.PI : (100 * (made - asked)) / Math.abs(asked);
  const text = Math.abs(value) >= 100 ? plainNumber(Math.abs(value)) : Math.abs(value).toFixed(1);
  const sign = Number(text) === 0 ? '' : value < 0 ? '−' : '+';
  return `${sign}${text} ${angle ? 'deg' : '%'}`;
}

function csv(findings: Finding[]): string {
  const head = ['group', 'quantity', 'units', 'asked', 'made', 'criterion', 'verdict', 'remark'];
  const rows = findings.map((finding) => [
    finding.group,
    finding.quantity,
    finding.units,
    finding.asked,
    finding.made,
    finding.criterion,
    finding.verdict,
    finding.remark,
  ]);
  return [head, ...rows].map(csvLine).join('');
}
