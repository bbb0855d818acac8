// What the run had to say: remarks, and the log.
import type { PageData } from '../data/data';
import { counted } from '../data/words';
import { element } from './frame';
import type { Part } from './page';

const most = 200; // remarks that are listed

export const messagesPart: Part = async ({ data }) => {
  const section = element('section', 'chart messages');
  section.id = 'messages';
  const head = element('div', 'chart-head');
  head.append(element('h2', '', 'Messages'));
  section.append(head);
  const remarks = remarksOf(data);
  if (remarks.length === 0) {
    section.append(element('p', '', 'The run has no remarks.'));
  } else {
    const list = element('ul');
    for (const { about, remark } of remarks.slice(0, most)) {
      const item = element('li');
      if (about) item.append(element('strong', '', `${about}: `));
      item.append(remark);
      list.append(item);
    }
    if (remarks.length > most) list.append(element('li', '', `and ${remarks.length - most} more, in summary.json`));
    section.append(list);
  }
  section.append(fold(`Log (${lines(data.log)})`, data.log || 'The log is empty.'));
  return section;
};

function remarksOf({ summary }: PageData): { about: string; remark: string }[] {
  return [
    ...summary.remarks.map((remark) => ({ about: '', remark })),
    ...summary.points.flatMap((point) => point.remarks.map((remark) => ({ about: `Point ${point.name}`, remark }))),
    ...(summary.field?.remarks ?? []).map((remark) => ({ about: 'Wave field', remark })),
  ];
}

function lines(text: string): string {
  const count = text.trimEnd() === '' ? 0 : text.trimEnd().split('\n').length;
  return counted(count, 'line');
}

// A text that a line unfolds. It can be scrolled with the keyboard.
export function fold(title: string, text: string): HTMLDetailsElement {
  const made = element('details');
  const content = element('pre', '', text);
  content.tabIndex = 0;
  content.setAttribute('aria-label', title);
  made.append(element('summary', '', title), content);
  return made;
}
