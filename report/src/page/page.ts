// What every part of the page gets.
import type { PageData } from '../data/data';
import type { View } from './view';

export interface Page {
  data: PageData;
  view: View;
}

// A part of the page. Null if the run has nothing to show in it.
export type Part = (page: Page) => Promise<HTMLElement | null>;
