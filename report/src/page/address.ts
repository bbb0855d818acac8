// Keeps the time and the stretch of time in the address of the page, so that a view can be passed on.
import type { View } from './view';

// Takes what the address says and writes it there after changes. A link to a section has other
// words in its place, and changes nothing.
export function keepInAddress(view: View): void {
  apply(view);
  window.addEventListener('hashchange', () => apply(view));
  let written = addressOf(view);
  let timer = 0;
  view.watch(() => {
    if (view.playing) return;
    clearTimeout(timer);
    timer = window.setTimeout(() => {
      const now = addressOf(view);
      if (now === written) return;
      written = now;
      history.replaceState(null, '', `#${now}`);
    }, 400);
  });
}

function addressOf({ time, from, to, repeat }: View): string {
  const whole = from <= 0 && to >= repeat;
  return `t=${time.toFixed(2)}${whole ? '' : `&from=${from.toFixed(2)}&to=${to.toFixed(2)}`}`;
}

function apply(view: View): void {
  const words = new URLSearchParams(location.hash.slice(1));
  const number = (name: string): number => parseFloat(words.get(name) ?? '');
  const inside = (value: number): boolean => value >= 0 && value <= view.repeat;
  const [time, from, to] = ['t', 'from', 'to'].map(number);
  if (inside(time)) view.set({ time });
  if (inside(from) && inside(to) && from < to) view.set({ from, to });
}
