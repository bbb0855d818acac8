// Puts the page together.
import type { PageData } from './data';
import { element } from './frame';
import type { Page, Part } from './page';
import { View } from './view';

const parts: Part[] = [];

async function show(): Promise<void> {
  const data = JSON.parse(document.getElementById('data')!.textContent!) as PageData;
  const page: Page = { data, view: new View(data.summary.run.repeat) };
  const main = document.getElementById('page')!;
  for (const part of parts) {
    try {
      const section = await part(page);
      if (section) main.append(section);
    } catch (error) {
      main.append(element('p', 'failure', `A part of this page could not be drawn: ${(error as Error).message}`));
      console.error(error);
    }
  }
  document.documentElement.dataset.ready = 'true';
}

void show();
