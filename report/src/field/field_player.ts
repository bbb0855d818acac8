// Plays the field: buttons, slider, speed, and keys. The time itself is the one of the view, which
// all charts share. Nothing starts by itself.
import { timeText } from '../data/words';
import { button, element } from '../page/frame';
import type { View } from '../page/view';
import type { FieldPicture } from './field_picture';

const speeds = [0.25, 0.5, 1, 2, 4, 8];

export class FieldPlayer {
  readonly controls = element('div', 'tools player');
  private readonly play: HTMLButtonElement;
  private readonly slider = element('input');
  private readonly time = element('output');
  private speed = 1;
  private last = 0; // ms, when the time was last moved on

  constructor(
    private readonly view: View,
    private readonly picture: FieldPicture,
  ) {
    this.play = button('Play', 'Play or pause (space)', () => this.toggle());
    const { slider } = this;
    slider.type = 'range';
    slider.min = '0';
    slider.max = String(picture.frames - 1);
    slider.setAttribute('aria-label', 'Time of the field');
    slider.addEventListener('input', () => this.goTo(Number(slider.value)));
    this.controls.append(
      this.play,
      button('◀', 'One frame back (left arrow)', () => this.step(-1)),
      button('▶', 'One frame on (right arrow)', () => this.step(1)),
      slider,
      this.time,
      this.speedChoice(),
    );
    view.watch(() => this.show());
    this.show();
  }

  toggle(): void {
    const playing = !this.view.playing;
    this.view.set({ playing });
    if (!playing) return;
    this.last = performance.now();
    requestAnimationFrame((now) => this.tick(now));
  }

  // For the chart and the controls. Controls keep the keys that they need themselves.
  key(event: KeyboardEvent): void {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    const at = event.target as HTMLElement;
    if (at instanceof HTMLSelectElement) return;
    const ownArrows = at === this.slider;
    const acts: Record<string, () => void> = {
      ArrowLeft: () => this.step(-1),
      ArrowRight: () => this.step(1),
      Home: () => this.goTo(0),
      End: () => this.goTo(this.picture.frames - 1),
      ' ': () => this.toggle(),
    };
    const act = acts[event.key];
    if (!act || (event.key === ' ' && at instanceof HTMLButtonElement) || (event.key !== ' ' && ownArrows)) return;
    event.preventDefault();
    act();
  }

  private step(frames: number): void {
    this.goTo(this.picture.frameAt(this.view.time) + frames);
  }

  private goTo(frame: number): void {
    this.view.set({ playing: false, time: this.picture.timeOf(frame) });
  }

  private tick(now: number): void {
    const { view, picture } = this;
    if (!view.playing) return;
    // A page in the background, or one that is slow, goes on where it was.
    const passed = Math.min(Math.max(now - this.last, 0), 250) / 1000;
    this.last = now;
    let time = picture.nearest(view.time) + passed * this.speed;
    if (time > picture.end) time = picture.start;
    view.set({ time });
    requestAnimationFrame((next) => this.tick(next));
  }

  private show(): void {
    const { view, picture } = this;
    this.play.textContent = view.playing ? 'Pause' : 'Play';
    const time = timeText(picture.nearest(view.time), picture.rate);
    this.slider.value = String(picture.frameAt(view.time));
    this.slider.setAttribute('aria-valuetext', time);
    this.time.textContent = time;
  }

  private speedChoice(): HTMLElement {
    const label = element('label', '', 'Speed');
    const choice = element('select');
    for (const speed of speeds) {
      const option = element('option', '', `${speed} ×`);
      option.value = String(speed);
      option.selected = speed === 1;
      choice.append(option);
    }
    choice.addEventListener('change', () => (this.speed = Number(choice.value)));
    label.append(choice);
    return label;
  }
}
