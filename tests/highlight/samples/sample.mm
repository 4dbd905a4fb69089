// A store of notes.
#import <Foundation/Foundation.h>
#import "Note.h"
#define kLimit 0x20

NS_ASSUME_NONNULL_BEGIN
@class Note;

@protocol StoreDelegate <NSObject>
@optional
- (void)storeDidChange:(id)sender;
@end

@interface Store : NSObject <NSCopying>
@property (nonatomic, strong, readonly) NSMutableArray<Note *> *notes;
@property (weak, nullable) id<StoreDelegate> delegate;
+ (instancetype)shared;
- (NSUInteger)add:(NSString *)text atIndex:(NSInteger)index;
@end
NS_ASSUME_NONNULL_END

@implementation Store
/* One store
   for everyone. */
+ (instancetype)shared {
    static Store *store = nil;
    static dispatch_once_t once;
    dispatch_once(&once, ^{ store = [[self alloc] init]; });
    return store;
}

- (NSUInteger)add:(NSString *)text atIndex:(NSInteger)index {
    NSDictionary *info = @{ @"text" : text, @"size" : @(text.length), @"tags" : @[ @1, @2.5 ] };
    if (text == nil || index < 0 || index > kLimit)
        @throw [NSException exceptionWithName:@"Bad \"index\"" reason:nil userInfo:info];
    __weak typeof(self) weakSelf = self;
    SEL action = @selector(storeDidChange:);
    @autoreleasepool {
        if ([self.delegate respondsToSelector:action])
            [weakSelf.delegate storeDidChange:self];
    }
    NSLog(@"added %@", text);
    return YES ? 1 : 0;
}
@end
