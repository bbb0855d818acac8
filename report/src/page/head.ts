// The head of the page: title, site, the sea in numbers, the verdict in words.
import type { Summary, SummarySea } from '../data/data';
import { withMinus } from '../drawing/axis_ticks';
import { element } from './frame';
import type { Part } from './page';

export const headPart: Part = async ({ data }) => {
  const { summary } = data;
  const head = element('header', 'head');
  const names = element('div', 'head-names');
  names.append(element('h1', '', summary.title || summary.site.tank || 'Run without a title'));
  names.append(element('p', 'head-site', [summary.site.name, summary.site.tank].filter(Boolean).join(' · ')));
  head.append(names, seas(summary), verdict(summary));
  return head;
};

function seas({ seas, run }: Summary): HTMLElement {
  const length = `${Number(run.repeat.toPrecision(5))} s repeat`;
  if (seas.length === 0) return element('p', 'head-sea', `No sea was asked for; ${length}.`);
  const named = seas.length > 1 || !/^sea \d+$/.test(seas[0].name);
  const lines = seas.map((sea) => (named ? `${sea.name}: ` : '') + sentence(sea));
  if (lines.length === 1) return element('p', 'head-sea', `${lines[0]}; ${length}.`);
  const list = element('ul', 'head-sea');
  for (const line of lines.slice(0, 6)) list.append(element('li', '', line));
  if (lines.length > 6) list.append(element('li', '', `and ${lines.length - 6} more seas`));
  list.append(element('li', '', length));
  return list;
}

function sentence(sea: SummarySea): string {
  return withMinus(sea.sentence || sea.waves.join(' + ') || 'no waves');
}

function verdict(summary: Summary): HTMLElement {
  const good = summary.looks === 0;
  const line = element('p', good ? 'verdict is-good' : 'verdict is-bad');
  const mark = element('span', 'mark', summary.judged === 0 ? '–' : good ? '✓' : '▲');
  mark.setAttribute('aria-hidden', 'true');
  line.append(mark, verdictText(summary));
  if (summary.judged === 0) line.className = 'verdict';
  return line;
}

export function verdictText({ judged, looks, findings }: Summary): string {
  if (judged === 0) return 'Nothing was judged.';
  if (looks === 0) return `Everything asked for is made. ${judged === 1 ? 'The finding is' : `All ${judged} findings are`} good.`;
  const names = findings.filter((finding) => finding.verdict === 'look').map((finding) => finding.quantity);
  const more = names.length > 4 ? `; and ${names.length - 4} more` : '';
  return `${looks} of ${judged} findings need${looks === 1 ? 's' : ''} a look: ${names.slice(0, 4).join('; ')}${more}.`;
}
