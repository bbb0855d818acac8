// Puts the page together.
import { depthPart } from './charts/depth';
import { pointsPart } from './charts/points';
import { spectrumPart } from './charts/spectrum';
import type { PageData } from './data/data';
import { withoutTurns } from './data/words';
import { directionsPart } from './directions/directions';
import { fieldPart } from './field/field';
import { stillsPart } from './field/stills';
import { drivePart } from './paddles/drive';
import { keepInAddress } from './page/address';
import { fillContents } from './page/contents';
import { findingsPart, moreFindingsPart } from './page/findings';
import { element } from './page/frame';
import { headPart } from './page/head';
import { messagesPart } from './page/messages';
import type { Page, Part } from './page/page';
import { preparePrinting } from './page/printing';
import { repeatPart } from './page/repeat';
import { View } from './page/view';
import { planPart } from './tank/plan';

// In the order of the page. Two neighbours of half width share a row. Without a link, a part is not
// among the contents.
const parts: { part: Part; width: 'full' | 'half'; link?: string }[] = [
  { part: headPart, width: 'full' },
  { part: findingsPart, width: 'half', link: 'Asked and made' },
  { part: planPart, width: 'half', link: 'Plan' },
  { part: moreFindingsPart, width: 'full' },
  { part: fieldPart, width: 'full', link: 'Field' },
  { part: stillsPart, width: 'full', link: 'Extremes' },
  { part: spectrumPart, width: 'half', link: 'Spectrum' },
  { part: directionsPart, width: 'half', link: 'Directions' },
  { part: depthPart, width: 'full', link: 'Depth' },
  { part: pointsPart, width: 'full', link: 'Points' },
  { part: drivePart, width: 'full', link: 'Paddles' },
  { part: messagesPart, width: 'full', link: 'Messages' },
  { part: repeatPart, width: 'full', link: 'Repeat' },
];

// The page opens at the highest crest.
function openingTime({ field }: PageData): number {
  if (!field) return 0;
  const end = field.start + (field.eta.shape[0] - 1) / field.rate;
  const crest = field.stills.find((still) => still.key === 'crest')?.t ?? field.start;
  return Math.min(Math.max(crest, field.start), end);
}

async function show(): Promise<void> {
  const data = JSON.parse(document.getElementById('data')!.textContent!, withoutTurns) as PageData;
  const page: Page = { data, view: new View(data.summary.run.repeat) };
  page.view.time = openingTime(data);
  keepInAddress(page.view);
  const main = document.getElementById('page')!;
  const sections: { link: string; section: HTMLElement }[] = [];
  for (const { part, width, link } of parts) {
    try {
      const section = await part(page);
      if (!section) continue;
      if (width === 'half') section.classList.add('half');
      main.append(section);
      sections.push({ link: link ?? '', section });
    } catch (error) {
      main.append(element('p', 'failure', `A part of this page could not be drawn: ${(error as Error).message}`));
      console.error(error);
    }
  }
  fillContents(document.getElementById('contents')!, sections);
  preparePrinting(page.view);
  matchMedia('(prefers-color-scheme: dark)').addEventListener('change', () => page.view.tell());
  document.documentElement.dataset.ready = 'true';
}

void show();
