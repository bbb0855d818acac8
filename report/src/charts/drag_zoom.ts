// The mouse on a picture of ours: drag to zoom, click to choose, double click to show all.
import { element } from '../page/frame';

export interface DragActions {
  inside(x: number): number; // x, kept within what can be zoomed
  zoom(left: number, right: number): void;
  click(x: number, y: number): void;
  undo(): void; // the click before, as it began a double click
  hover(x: number, y: number): void;
  reset(): void;
}

export function dragZoom(host: HTMLElement, actions: DragActions): void {
  const band = element('div', 'map-select');
  band.hidden = true;
  host.append(band);
  let start: number | undefined;
  const place = (event: MouseEvent): [number, number] => {
    const box = host.getBoundingClientRect();
    return [event.clientX - box.left, event.clientY - box.top];
  };
  host.addEventListener('pointerdown', (event) => {
    if (event.button !== 0 || event.pointerType === 'touch') return;
    start = place(event)[0];
    host.setPointerCapture(event.pointerId);
  });
  host.addEventListener('pointermove', (event) => {
    const [x, y] = place(event);
    actions.hover(x, y);
    if (start === undefined) return;
    const [left, right] = [actions.inside(Math.min(start, x)), actions.inside(Math.max(start, x))];
    band.hidden = right - left < 4;
    Object.assign(band.style, { left: `${left}px`, width: `${right - left}px` });
  });
  host.addEventListener('pointerup', (event) => {
    if (start === undefined) return;
    const x = place(event)[0];
    const [left, right] = [actions.inside(Math.min(start, x)), actions.inside(Math.max(start, x))];
    start = undefined;
    if (!band.hidden) actions.zoom(left, right);
  });
  host.addEventListener('click', (event) => {
    const dragged = !band.hidden;
    band.hidden = true;
    if (dragged) return;
    if (event.detail > 1) actions.undo();
    else actions.click(...place(event));
  });
  host.addEventListener('pointerleave', () => actions.hover(-1, -1));
  host.addEventListener('pointercancel', () => ((start = undefined), (band.hidden = true)));
  host.addEventListener('dblclick', () => actions.reset());
}
