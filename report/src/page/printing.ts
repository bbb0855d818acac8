// Makes the page ready for paper, and puts it back afterwards.
import type { View } from './view';

export function onPaper(): boolean {
  return document.documentElement.dataset.print !== undefined;
}

// Folds are opened, pictures go without colour, canvases are drawn for the width of the paper.
export function preparePrinting(view: View): void {
  let opened: HTMLDetailsElement[] = [];
  window.addEventListener('beforeprint', () => {
    opened = [...document.querySelectorAll('details')].filter((fold) => !fold.open);
    for (const fold of opened) fold.open = true;
    change(view, true);
  });
  window.addEventListener('afterprint', () => {
    for (const fold of opened) fold.open = false;
    change(view, false);
  });
}

function change(view: View, printing: boolean): void {
  document.documentElement.toggleAttribute('data-print', printing);
  view.set({ grey: printing });
  view.tell(); // there is no next picture before the paper
}
