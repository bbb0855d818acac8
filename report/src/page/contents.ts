// The row of links to the sections.
import { element } from './frame';

export function fillContents(nav: HTMLElement, sections: { link: string; section: HTMLElement }[]): void {
  for (const { link, section } of sections) {
    if (!link || !section.id) continue;
    const made = element('a', '', link);
    made.href = `#${section.id}`;
    nav.append(made);
    section.tabIndex = -1; // the link moves the focus, too
  }
}
