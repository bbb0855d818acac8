// Keys of charts: what a drag, a click and a double click do, without a mouse.
import { goTo, move, pan, reset, zoom, type Stretch } from './stretch';

export const KEYS =
  'Arrow keys move the mark (Shift: faster), W and S or + and − zoom, A and D pan, Escape shows all.';

// `further` is asked first, and returns whether it used the key.
export function stretchKeys(host: HTMLElement, stretch: () => Stretch, further?: (key: string) => boolean): void {
  host.addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.metaKey || event.altKey || event.target !== host) return;
    if (further?.(event.key) || act(stretch(), event.key, event.shiftKey ? 10 : 1)) event.preventDefault();
  });
}

function act(stretch: Stretch, key: string, fast: number): boolean {
  const actions: Record<string, () => void> = {
    arrowleft: () => move(stretch, -fast),
    arrowright: () => move(stretch, fast),
    home: () => goTo(stretch, stretch.first),
    end: () => goTo(stretch, stretch.last),
    '+': () => zoom(stretch, 0.5),
    '=': () => zoom(stretch, 0.5),
    w: () => zoom(stretch, 0.5),
    '-': () => zoom(stretch, 2),
    s: () => zoom(stretch, 2),
    a: () => pan(stretch, -0.25),
    d: () => pan(stretch, 0.25),
    escape: () => reset(stretch),
  };
  const action = actions[key.toLowerCase()];
  action?.();
  return action !== undefined;
}
