// A small basket.
import Foundation

/* A block comment: func, let and "string"
   are comment here. */
@available(iOS 15, macOS 12.0, *)
public protocol Shape: AnyObject {
    associatedtype Unit
    var area: Double { get set }
    func scaled(by factor: Double) throws -> Self
}

@frozen public enum State: Int, CaseIterable {
    case idle = 0, busy = 0xFF
    indirect case nested(State)
}

#if os(Linux)
final class Basket<Item>: NSObject where Item: Hashable & Codable {
    private(set) lazy var items: [Item: Int] = [:]
    static let limit = 1_000.5e-3
    weak var owner: Basket?

    required init?(name: String = "a \"quoted\" name \\", count: Int = -1) {
        guard count >= 0, !name.isEmpty else { return nil }
        super.init()
        defer { print(#function, self) }
    }

    subscript(item: Item) -> Int { items[item] ?? 0 }

    func load(from path: String) async throws -> some Sequence {
        do {
            for try await line in URL(fileURLWithPath: path).lines where line != "" {
                switch line { case let s where s.count > 10: continue; default: break } // long
            }
        } catch let error as NSError { fatalError("\(error)") }
        return items.keys.map { $0 }.filter { $0 is Item } /* one */ + [] /* two */
    }
    deinit { owner = nil }
}
#endif
let text = """
    several "lines" of text
    """
